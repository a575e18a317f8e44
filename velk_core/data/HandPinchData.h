// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandJointId.h"

#include <array>

namespace velk::data
{

/// What the pinch grab measures: the joint positions relative to the wrist, in `HandJointId` order.
struct HandPinchData
{
    std::array<Vector3f, interaction::grab::kNumHandJoints> jointPositions;
};

} // namespace velk::data
