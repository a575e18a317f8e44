// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

/// The arithmetic that the smoothing filters need, spelled alike for positions and for rotations. The
/// difference and the scaling of rotations go through the rotation vector.
namespace TALF
{

inline TAL::Vector3f scale(const TAL::Vector3f& v, float s)
{
    return v * s;
}

inline TAL::Quatf scale(const TAL::Quatf& v, float s)
{
    return TAL::Quatf::FromRotationVector(v.ToRotationVector() * s);
}

inline TAL::Vector3f diff(const TAL::Vector3f& a, const TAL::Vector3f& b)
{
    return a - b;
}

inline TAL::Quatf diff(const TAL::Quatf& a, const TAL::Quatf& b)
{
    return a * b.Inverted();
}

inline float mag(const TAL::Vector3f& v)
{
    return v.Length();
}

inline float mag(const TAL::Quatf& v)
{
    return v.Angle();
}

inline TAL::Vector3f lerp(const TAL::Vector3f& a, const TAL::Vector3f& b, float t)
{
    return a + (b - a) * t;
}

inline TAL::Quatf lerp(const TAL::Quatf& a, const TAL::Quatf& b, float t)
{
    return a.Slerp(b, t);
}

/// The share of a new sample that an exponential filter takes over, from its cutoff in hertz and the
/// time step in seconds.
inline float cuttoffToGain(float cutoff, float deltaTime)
{
    constexpr float kTwoPi = 6.2831855f;
    return deltaTime / (1.0f / (kTwoPi * cutoff) + deltaTime);
}

} // namespace TALF
