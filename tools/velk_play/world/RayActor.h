// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"
#include "world/Targets.h"

namespace velk_tools
{

/// A ray interactor that follows its driver in the recording.
class RayActor
{
public:
    explicit RayActor(const Ray& ray);

    const Ray& ray() const { return ray_; }
    VelkInteractorHandle interactor() const { return interactor_; }
    /// Queues a press or a release, for the next update to use or drop.
    void press(bool down);
    void update(const Frame& frame);
    RayView view(const RayTargets& targets) const;

private:
    std::optional<Pose> pose(const Frame& frame) const;

    Ray ray_;
    Selector selector_;
    Interactor interactor_;
    bool pressed_ = false;
    bool tracked_ = false;
};

} // namespace velk_tools
