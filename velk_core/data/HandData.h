// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include <cstddef>
#include <vector>

namespace velk::data
{

/// One hand at one moment: a rotation for each joint, indexed by HandJointId, and the pose of the root.
struct HandData
{
    /// All joints and the root at the identity.
    explicit HandData(int numJoints)
        : joints(static_cast<std::size_t>(numJoints), Quatf::Identity())
        , rootPose(Posef::Identity())
        , numHandJoints(numJoints)
    {
    }

    /// The count given at construction, whatever the size of `joints`: per-joint state is sized by it.
    int getNumHandJoints() const { return numHandJoints; }

    std::vector<Quatf> joints;
    Posef rootPose;
    int numHandJoints;
};

} // namespace velk::data
