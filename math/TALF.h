// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Quat.h"
#include "math/Vector3.h"

/// The arithmetic that the smoothing filters need, spelled alike for positions and for rotations. The
/// difference and the scaling of rotations go through the rotation vector.
namespace TALF
{

inline TAL::Vector3<float> scale(const TAL::Vector3<float>& v, float s)
{
    return v * s;
}

inline TAL::Quat<float> scale(const TAL::Quat<float>& v, float s)
{
    return TAL::Quat<float>::FromRotationVector(v.ToRotationVector() * s);
}

inline TAL::Vector3<float> diff(const TAL::Vector3<float>& a, const TAL::Vector3<float>& b)
{
    return a - b;
}

inline TAL::Quat<float> diff(const TAL::Quat<float>& a, const TAL::Quat<float>& b)
{
    return a * b.Inverted();
}

inline float mag(const TAL::Vector3<float>& v)
{
    return v.Length();
}

inline float mag(const TAL::Quat<float>& v)
{
    return v.Angle();
}

inline TAL::Vector3<float> lerp(const TAL::Vector3<float>& a, const TAL::Vector3<float>& b, float t)
{
    return a + (b - a) * t;
}

inline TAL::Quat<float> lerp(const TAL::Quat<float>& a, const TAL::Quat<float>& b, float t)
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
