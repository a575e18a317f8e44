// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction
{

/// Where a surface is, and where it was before it began to move: enough to know where it was when a finger
/// last looked, together with what the finger remembers of those that it saw moving.
class SurfaceMotion
{
public:
    explicit SurfaceMotion(const Posef& pose = {})
    {
        follow(pose);
        begin();
    }

    /// A surface that was at rest is about to change.
    void begin() { restPose_ = pose_; }
    void follow(const Posef& pose)
    {
        pose_ = pose;
        inverse_ = pose.Inverted();
    }

    const Posef& getPose() const { return pose_; }

    /// Of getPose(), which is asked for in each search.
    const Posef& getInverse() const { return inverse_; }

    /// The pose before the last time that it began to move.
    const Posef& getRestPose() const { return restPose_; }

private:
    Posef pose_;
    Posef inverse_;
    Posef restPose_;
};

} // namespace velk::interaction
