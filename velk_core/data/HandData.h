// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"
#include "math/Quat.h"

#include <cstddef>
#include <vector>

namespace velk::data
{

/// One hand at one moment: a rotation for each joint, indexed by HandJointId, and the pose of the root.
struct HandData
{
    /// All joints and the root at the identity.
    explicit HandData(int numJoints)
        : joints(static_cast<std::size_t>(numJoints), TAL::Quat<float>::Identity())
        , rootPose(TAL::Pose<float>::Identity())
        , numHandJoints(numJoints)
    {
    }

    /// The count given at construction, whatever the size of `joints`: per-joint state is sized by it.
    int getNumHandJoints() const { return numHandJoints; }

    std::vector<TAL::Quat<float>> joints;
    TAL::Pose<float> rootPose;
    int numHandJoints;
};

} // namespace velk::data
