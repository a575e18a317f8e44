// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Angles.h"

#include <algorithm>

namespace TAL
{

inline constexpr float kPi = 3.1415927f;
inline constexpr float kDegreesPerRadian = 57.29578f;

/// Numeric properties of the scalar type.
template <typename T>
struct Math
{
    /// What counts as zero: a length, or the cosine between a ray and a plane.
    static constexpr T Tolerance() { return T(1e-5); }
};

/// Arc cosine that takes rounding beyond -1..1 as the end of the range. NaN stays NaN.
inline float Acos(float x)
{
    if (x > 1.0f) {
        return 0.0f;
    }
    if (x < -1.0f) {
        return kPi;
    }
    return angles::ArcCos(x);
}

} // namespace TAL

/// `lo` wins where it exceeds `hi`, and a NaN value comes out as `hi` (or as `lo` if that is larger).
/// std::clamp promises neither.
template <typename T>
constexpr T clamp(T value, T lo, T hi)
{
    return std::max(lo, std::min(hi, value));
}
