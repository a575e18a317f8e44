// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

#include <algorithm>
#include <cmath>

// What a search allows for the rounding of the rules that come after it.
namespace velk::interaction::search
{

/// Metres. What lies farther is odd: its rounding is no longer small.
inline constexpr float kFarthest = 1.0e5f;

/// Of the farthest coordinate: a hundred times what the rules' few operations amount to.
inline constexpr float kRelativeSlack = 1.0e-5f;
inline constexpr float kLeastSlack = 1.0e-6f;

inline float slackAt(float farthest)
{
    return kRelativeSlack * farthest + kLeastSlack;
}

inline float farthestCoordinate(const Vector3f& point)
{
    return std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
}

/// False also of a NaN.
inline bool isNear(const Vector3f& point)
{
    return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest &&
           std::fabs(point.z) <= kFarthest;
}

} // namespace velk::interaction::search
