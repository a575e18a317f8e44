// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <algorithm>
#include <cmath>

#include <velk/velk.h>

/// The little geometry that a host needs of its own: placing things and turning records from one space to
/// another.
namespace velk_tools
{

using Vec3 = talpVector3f;
using Quat = talpQuatf;
using Pose = talpPosef;

inline constexpr Quat kNoRotation{0, 0, 0, 1};
inline constexpr Pose kIdentity{kNoRotation, {0, 0, 0}};
inline constexpr float kDegrees = 57.29578f;

inline Vec3 operator+(Vec3 a, Vec3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vec3 operator-(Vec3 a, Vec3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vec3 operator*(Vec3 a, float s)
{
    return {a.x * s, a.y * s, a.z * s};
}

inline float dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec3 cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline float length(Vec3 a)
{
    return std::sqrt(dot(a, a));
}

/// The zero vector stays as it is.
inline Vec3 normalized(Vec3 a)
{
    const float size = length(a);
    return size > 0 ? a * (1 / size) : a;
}

inline Quat operator*(Quat a, Quat b)
{
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

inline Quat conjugate(Quat q)
{
    return {-q.x, -q.y, -q.z, q.w};
}

inline float length(Quat q)
{
    return std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
}

inline Quat normalized(Quat q)
{
    const float s = 1 / length(q);
    return {q.x * s, q.y * s, q.z * s, q.w * s};
}

inline Vec3 rotate(Quat q, Vec3 v)
{
    const Vec3 axis{q.x, q.y, q.z};
    const Vec3 twice = cross(axis, v) * 2;
    return v + twice * q.w + cross(axis, twice);
}

/// world = pose * local.
inline Vec3 transform(const Pose& pose, Vec3 local)
{
    return rotate(pose.orientation, local) + pose.position;
}

inline Pose transform(const Pose& pose, const Pose& local)
{
    return {pose.orientation * local.orientation, transform(pose, local.position)};
}

inline Vec3 inverseTransform(const Pose& pose, Vec3 world)
{
    return rotate(conjugate(pose.orientation), world - pose.position);
}

/// The way that a surface with this pose faces: its local +Z.
inline Vec3 facing(const Pose& pose)
{
    return rotate(pose.orientation, {0, 0, 1});
}

/// Degrees between two rotations.
inline float angleBetween(Quat a, Quat b)
{
    const float cosine = std::abs(a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w);
    return 2 * std::acos(std::min(cosine, 1.0f)) * kDegrees;
}

/// Degrees between two directions; 90 when one of them is zero.
inline float angleBetween(Vec3 a, Vec3 b)
{
    return std::acos(std::clamp(dot(normalized(a), normalized(b)), -1.0f, 1.0f)) * kDegrees;
}

/// A rotation from three square unit axes, given as where local X, Y and Z go.
inline Quat fromAxes(Vec3 x, Vec3 y, Vec3 z)
{
    // Each branch divides by a component that is not small, whatever the rotation.
    const float trace = x.x + y.y + z.z;
    if (trace > 0) {
        return normalized(Quat{y.z - z.y, z.x - x.z, x.y - y.x, trace + 1});
    }
    if (x.x > y.y && x.x > z.z) {
        return normalized(Quat{1 + x.x - y.y - z.z, y.x + x.y, z.x + x.z, y.z - z.y});
    }
    if (y.y > z.z) {
        return normalized(Quat{y.x + x.y, 1 - x.x + y.y - z.z, z.y + y.z, z.x - x.z});
    }
    return normalized(Quat{z.x + x.z, z.y + y.z, 1 - x.x - y.y + z.z, x.y - y.x});
}

/// The rotation that turns local +Z to direction and keeps local +Y as near to up as it can. A direction
/// along up takes another axis for up.
inline Quat turnZTo(Vec3 direction, Vec3 up = {0, 1, 0})
{
    constexpr float kParallel = 0.999f;
    const Vec3 z = normalized(direction);
    if (std::abs(dot(z, normalized(up))) > kParallel) {
        up = std::abs(z.z) < kParallel ? Vec3{0, 0, -1} : Vec3{0, 1, 0};
    }
    const Vec3 x = normalized(cross(up, z));
    return fromAxes(x, cross(z, x), z);
}

} // namespace velk_tools
