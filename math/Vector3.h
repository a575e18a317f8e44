// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Math.h"

#include <cmath>

namespace TAL
{

/// A point, direction or extent, zero by default. Right-handed: x right, y up, -z forward.
/// No operation tests its input; infinities and NaN run through.
template <typename T>
struct Vector3
{
    T x = T(0);
    T y = T(0);
    T z = T(0);

    constexpr Vector3() = default;
    constexpr Vector3(T inX, T inY, T inZ)
        : x(inX)
        , y(inY)
        , z(inZ)
    {
    }

    static const Vector3 ZERO;
    static constexpr Vector3 Zero() { return Vector3(); }

    constexpr Vector3 operator+(const Vector3& b) const { return Vector3(x + b.x, y + b.y, z + b.z); }
    constexpr Vector3 operator-(const Vector3& b) const { return Vector3(x - b.x, y - b.y, z - b.z); }
    constexpr Vector3 operator-() const { return Vector3(-x, -y, -z); }
    constexpr Vector3 operator*(T s) const { return Vector3(x * s, y * s, z * s); }

    Vector3& operator+=(const Vector3& b)
    {
        x += b.x;
        y += b.y;
        z += b.z;
        return *this;
    }

    /// Multiplies by the reciprocal, so the result can differ from a true division in the last bit.
    Vector3& operator/=(T s)
    {
        const T reciprocal = T(1) / s;
        x *= reciprocal;
        y *= reciprocal;
        z *= reciprocal;
        return *this;
    }

    constexpr T Dot(const Vector3& b) const { return x * b.x + y * b.y + z * b.z; }
    constexpr T LengthSq() const { return Dot(*this); }
    T Length() const { return std::sqrt(LengthSq()); }
    T Distance(const Vector3& b) const { return (*this - b).Length(); }

    constexpr Vector3 Cross(const Vector3& b) const
    {
        return Vector3(y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x);
    }

    /// The zero vector stays zero; there is no epsilon, so a tiny vector is blown up to unit length.
    Vector3 Normalized() const
    {
        T multiplier = Length();
        if (multiplier != T(0)) {
            multiplier = T(1) / multiplier;
        }
        return *this * multiplier;
    }

    /// Inclusive, component by component. False where a component is NaN.
    bool IsEqual(const Vector3& b, T tolerance) const
    {
        return tolerance >= std::fabs(b.x - x) && tolerance >= std::fabs(b.y - y) &&
               tolerance >= std::fabs(b.z - z);
    }

    /// The angle between two vectors of any length, in radians. NaN if either is zero.
    T Angle(const Vector3& b) const { return Acos(Dot(b) / std::sqrt(LengthSq() * b.LengthSq())); }

    /// The part of this vector along `b`, which need not be of unit length. NaN for a zero `b`.
    constexpr Vector3 ProjectTo(const Vector3& b) const { return b * (Dot(b) / b.LengthSq()); }
    constexpr Vector3 ProjectToPlane(const Vector3& normal) const { return *this - ProjectTo(normal); }

    /// `t` is not clamped.
    constexpr Vector3 Lerp(const Vector3& b, T t) const { return *this * (T(1) - t) + b * t; }

    /// Per component; a tie, or a NaN on either side, yields the component of `b`.
    static constexpr Vector3 Min(const Vector3& a, const Vector3& b)
    {
        return Vector3(b.x > a.x ? a.x : b.x, b.y > a.y ? a.y : b.y, b.z > a.z ? a.z : b.z);
    }

    /// Per component; a tie, or a NaN on either side, yields the component of `b`.
    static constexpr Vector3 Max(const Vector3& a, const Vector3& b)
    {
        return Vector3(a.x > b.x ? a.x : b.x, a.y > b.y ? a.y : b.y, a.z > b.z ? a.z : b.z);
    }
};

template <typename T>
constexpr Vector3<T> Vector3<T>::ZERO{};

template <typename T>
constexpr Vector3<T> operator*(T s, const Vector3<T>& v)
{
    return v * s;
}

} // namespace TAL
