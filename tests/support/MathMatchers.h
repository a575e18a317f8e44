// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"

#include <gtest/gtest.h>

#include <limits>

namespace velk::test
{

using Vec = TAL::Vector3<float>;
using Rot = TAL::Quat<float>;
using Pose = TAL::Pose<float>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// What a few roundings of values up to about 10 add up to.
constexpr float kRounding = 1e-5f;

/// The rotation by `angle`, in radians, about an axis of any length.
inline Rot turn(const Vec& axis, float angle)
{
    return Rot::FromRotationVector(axis.Normalized() * angle);
}

/// Unit vector 0, 1 or 2.
inline Vec axis(int index)
{
    return Vec(index == 0 ? 1.0f : 0.0f, index == 1 ? 1.0f : 0.0f, index == 2 ? 1.0f : 0.0f);
}

/// Each component within `tolerance`.
inline ::testing::AssertionResult isNear(const Vec& a, const Vec& b, float tolerance = 0.0f)
{
    return (a.IsEqual(b, tolerance) ? ::testing::AssertionSuccess() : ::testing::AssertionFailure())
           << a.x << " " << a.y << " " << a.z << " against " << b.x << " " << b.y << " " << b.z;
}

} // namespace velk::test
