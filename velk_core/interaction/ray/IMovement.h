// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::movement
{

/// A pose that moves towards a target over time: how a selected thing follows the ray that drags it.
class IMovement
{
public:
    virtual ~IMovement() = default;

    /// The present pose of the moved thing.
    virtual Posef getPose() = 0;

    // The ray does not ask these two; they are for whoever watches a movement.
    virtual Posef getTarget() = 0;
    virtual bool hasArrived() = 0;

    /// Aims at a new target.
    virtual void moveTo(const Posef& target) = 0;

    /// Ends the movement at this pose.
    virtual void stopAndSetPose(const Posef& pose) = 0;

    /// Advances by one frame.
    virtual void tick() = 0;
};

} // namespace velk::movement
