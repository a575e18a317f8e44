// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"
#include "math/Vector3.h"

namespace velk::interaction::grab
{

inline constexpr TAL::Vector3<float> Forward(0.0f, 0.0f, -1.0f);
inline constexpr TAL::Vector3<float> Up(0.0f, 1.0f, 0.0f);

/// Where searches for a least distance start, and what an unmeasured distance reads: the greatest finite
/// float.
inline constexpr float PositiveInfinity = 3.4028235e38f;

inline constexpr float kDegreesPerRadian = 57.29578f;

TAL::Vector3<float> GetUpVector(const TAL::Pose<float>& pose);
TAL::Vector3<float> GetForwardVector(const TAL::Pose<float>& pose);

/// The angle from `a` to `b` in degrees: negative where their cross product points along `axis`, which is the
/// mirror of the right-hand rule. NaN if either is zero.
float GetVectorSignedAngle(TAL::Vector3<float> a, TAL::Vector3<float> b, TAL::Vector3<float> axis);

} // namespace velk::interaction::grab
