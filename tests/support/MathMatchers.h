// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include <gtest/gtest.h>

#include <limits>

namespace velk::test
{

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// What a few roundings of values up to about 10 add up to.
constexpr float kRounding = 1e-5f;

/// The rotation by `angle`, in radians, about an axis of any length.
inline Quatf turn(const Vector3f& axis, float angle)
{
    return Quatf::FromRotationVector(axis.Normalized() * angle);
}

/// Unit vector 0, 1 or 2.
inline Vector3f axis(int index)
{
    return Vector3f(index == 0 ? 1.0f : 0.0f, index == 1 ? 1.0f : 0.0f, index == 2 ? 1.0f : 0.0f);
}

/// Each component within `tolerance`.
inline ::testing::AssertionResult isNear(const Vector3f& a, const Vector3f& b, float tolerance = 0.0f)
{
    return (a.IsEqual(b, tolerance) ? ::testing::AssertionSuccess() : ::testing::AssertionFailure())
           << a.x << " " << a.y << " " << a.z << " against " << b.x << " " << b.y << " " << b.z;
}

} // namespace velk::test
