// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

#include <cstdint>

namespace velk::interaction
{

/// Where a surface is, and where it was before it began to move: enough to know where it was when a finger
/// last looked, together with what the finger remembers of those that it saw moving. Moments are those of the
/// index's count of changes.
class SurfaceMotion
{
public:
    void enter(const Posef& pose, uint64_t moment)
    {
        follow(pose);
        begin(moment);
    }
    /// A surface that was at rest is about to change.
    void begin(uint64_t moment)
    {
        restPose_ = pose_;
        movingSince_ = moment;
    }
    void follow(const Posef& pose)
    {
        pose_ = pose;
        inverse_ = pose.Inverted();
    }

    const Posef& getPose() const { return pose_; }

    /// Of getPose(), which is asked for in each search.
    const Posef& getInverse() const { return inverse_; }

    /// The pose before the last time that it began to move, which was at getMovingSince().
    const Posef& getRestPose() const { return restPose_; }
    uint64_t getMovingSince() const { return movingSince_; }

private:
    Posef pose_;
    Posef inverse_;
    Posef restPose_;
    uint64_t movingSince_ = 0;
};

} // namespace velk::interaction
