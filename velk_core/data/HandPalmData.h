// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandJointId.h"

#include <array>
#include <cstdint>

namespace velk::data
{

/// What the palm grab measures: the joint poses in the root's space, in `HandJointId` order, each with its
/// local Z along the axis that the finger bends about.
struct HandPalmData
{
    std::array<Posef, interaction::grab::kNumHandJoints> jointPoses;
    Posef rootPose;
    /// Zero or not; which of them is the left hand is the host's convention.
    int32_t handedness = 0;
};

} // namespace velk::data
