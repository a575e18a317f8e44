// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Angles.h"
#include "math/Math.h"
#include "math/Matrix4.h"
#include "math/Vector3.h"

#include <cmath>

namespace TAL
{

/// A rotation, the identity by default. No operation normalises it unasked: a quaternion
/// of length L scales what it rotates by L squared, and Inverted() is the conjugate, which is the
/// inverse of a unit quaternion only. Of two rotations, worldFromChild = worldFromLocal * localFromChild.
template <typename T>
struct Quat
{
    T x = T(0);
    T y = T(0);
    T z = T(0);
    T w = T(1);

    constexpr Quat() = default;
    constexpr Quat(T inX, T inY, T inZ, T inW)
        : x(inX)
        , y(inY)
        , z(inZ)
        , w(inW)
    {
    }

    /// The rotation in the upper 3-by-3 of `m`, which must be orthonormal (Shepperd, "Quaternion from
    /// rotation matrix", 1978).
    explicit Quat(const Matrix4<T>& m)
    {
        const T trace = m.M[0][0] + m.M[1][1] + m.M[2][2];
        if (trace > T(0)) {
            const T s = std::sqrt(T(1) + trace) * T(2);
            w = T(0.25) * s;
            x = (m.M[2][1] - m.M[1][2]) / s;
            y = (m.M[0][2] - m.M[2][0]) / s;
            z = (m.M[1][0] - m.M[0][1]) / s;
        } else if (m.M[0][0] > m.M[1][1] && m.M[0][0] > m.M[2][2]) {
            const T s = std::sqrt(T(1) + m.M[0][0] - m.M[1][1] - m.M[2][2]) * T(2);
            w = (m.M[2][1] - m.M[1][2]) / s;
            x = T(0.25) * s;
            y = (m.M[0][1] + m.M[1][0]) / s;
            z = (m.M[2][0] + m.M[0][2]) / s;
        } else if (m.M[1][1] > m.M[2][2]) {
            const T s = std::sqrt(T(1) + m.M[1][1] - m.M[0][0] - m.M[2][2]) * T(2);
            w = (m.M[0][2] - m.M[2][0]) / s;
            x = (m.M[0][1] + m.M[1][0]) / s;
            y = T(0.25) * s;
            z = (m.M[1][2] + m.M[2][1]) / s;
        } else {
            const T s = std::sqrt(T(1) + m.M[2][2] - m.M[0][0] - m.M[1][1]) * T(2);
            w = (m.M[1][0] - m.M[0][1]) / s;
            x = (m.M[0][2] + m.M[2][0]) / s;
            y = (m.M[1][2] + m.M[2][1]) / s;
            z = T(0.25) * s;
        }
    }

    static constexpr Quat Identity() { return Quat(); }

    /// The Hamilton product: rotates by `b` first, then by this.
    constexpr Quat operator*(const Quat& b) const
    {
        return Quat(w * b.x + x * b.w + y * b.z - z * b.y, w * b.y - x * b.z + y * b.w + z * b.x,
                    w * b.z + x * b.y - y * b.x + z * b.w, w * b.w - x * b.x - y * b.y - z * b.z);
    }

    constexpr Quat operator*(T s) const { return Quat(x * s, y * s, z * s, w * s); }
    constexpr Quat operator+(const Quat& b) const { return Quat(x + b.x, y + b.y, z + b.z, w + b.w); }
    constexpr T Dot(const Quat& b) const { return x * b.x + y * b.y + z * b.z + w * b.w; }
    constexpr T LengthSq() const { return Dot(*this); }
    T Length() const { return std::sqrt(LengthSq()); }

    /// The zero quaternion stays zero; it does not become the identity.
    Quat Normalized() const
    {
        T multiplier = Length();
        if (multiplier != T(0)) {
            multiplier = T(1) / multiplier;
        }
        return *this * multiplier;
    }

    /// The conjugate.
    constexpr Quat Inverted() const { return Quat(-x, -y, -z, w); }
    constexpr Vector3<T> Imag() const { return Vector3<T>(x, y, z); }

    constexpr Vector3<T> Rotate(const Vector3<T>& v) const
    {
        return (*this * Quat(v.x, v.y, v.z, T(0)) * Inverted()).Imag();
    }

    constexpr Vector3<T> operator*(const Vector3<T>& v) const { return Rotate(v); }
    constexpr Vector3<T> InverseRotate(const Vector3<T>& v) const { return Inverted().Rotate(v); }

    /// How far it turns, in radians, from 0 to pi.
    T Angle() const { return T(2) * Acos(Abs(w)); }

    static constexpr T Abs(T v) { return v >= T(0) ? v : -v; }

    /// The axis times the angle in radians, taking the shorter way round. The identity yields zero.
    Vector3<T> ToRotationVector() const
    {
        T s = T(0);
        const T sinHalf = std::sqrt(x * x + y * y + z * z);
        if (sinHalf > T(0)) {
            T half = angles::ArcTan2(sinHalf, w);
            if (T(0) > w) {
                half -= kPi;
            }
            s = T(2) * half / sinHalf;
        }
        return Vector3<T>(x * s, y * s, z * s);
    }

    /// The inverse of ToRotationVector().
    static Quat FromRotationVector(const Vector3<T>& v)
    {
        T s = T(0);
        T c = T(1);
        if (v.LengthSq() > T(0)) {
            const T angle = std::sqrt(v.LengthSq());
            const angles::SineAndCosine half = angles::SinCos(T(0.5) * angle);
            s = half.sine / angle;
            c = half.cosine;
        }
        return Quat(s * v.x, s * v.y, s * v.z, c);
    }

    /// Turns at constant speed from this to `b`, the shorter way. `t` is not clamped: beyond 0..1 it
    /// extrapolates. The result is not normalised.
    Quat Slerp(const Quat& b, T t) const
    {
        return FromRotationVector((b * Inverted()).ToRotationVector() * t) * *this;
    }

    /// The normalising interpolation, the shorter way. `t` is not clamped.
    Quat Lerp(const Quat& b, T t) const
    {
        return (*this * (T(1) - t) + b * (T(0) > Dot(b) ? -t : t)).Normalized();
    }

    /// The rotation that turns (0, 0, -1) onto `forward` and (0, 1, 0) toward `up`. Degenerate for a
    /// zero `forward` or a parallel `up`; velk::math::quaternion::lookRotationSafe guards against both.
    static Quat LookRotation(const Vector3<T>& forward, const Vector3<T>& up)
    {
        // The view matrix turns the world into the eye's frame; its conjugate turns the eye.
        return Quat(Matrix4<T>::LookAtRH(Vector3<T>(T(0), T(0), T(0)), forward, up)).Inverted();
    }
};

} // namespace TAL
