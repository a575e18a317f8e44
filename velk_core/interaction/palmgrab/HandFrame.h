// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction::grab
{

inline constexpr Vector3f Forward(0.0f, 0.0f, -1.0f);
inline constexpr Vector3f Up(0.0f, 1.0f, 0.0f);

/// Where searches for a least distance start, and what an unmeasured distance reads: the greatest finite
/// float.
inline constexpr float PositiveInfinity = 3.4028235e38f;

Vector3f GetUpVector(const Posef& pose);
Vector3f GetForwardVector(const Posef& pose);

/// The angle from `a` to `b` in degrees: negative where their cross product points along `axis`, which is the
/// mirror of the right-hand rule. NaN if either is zero.
float GetVectorSignedAngle(Vector3f a, Vector3f b, Vector3f axis);

} // namespace velk::interaction::grab
