// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"

namespace velk::movement
{

/// A pose that moves towards a target over time: how a selected thing follows the ray that drags it.
class IMovement
{
public:
    virtual ~IMovement() = default;

    /// The present pose of the moved thing.
    virtual TAL::Pose<float> getPose() = 0;

    // The ray does not ask these two; they are for whoever watches a movement.
    virtual TAL::Pose<float> getTarget() = 0;
    virtual bool hasArrived() = 0;

    /// Aims at a new target.
    virtual void moveTo(const TAL::Pose<float>& target) = 0;

    /// Ends the movement at this pose.
    virtual void stopAndSetPose(const TAL::Pose<float>& pose) = 0;

    /// Advances by one frame.
    virtual void tick() = 0;
};

} // namespace velk::movement
