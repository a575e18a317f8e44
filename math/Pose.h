// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Quat.h"
#include "math/Vector3.h"

namespace TAL
{

/// A rigid frame: rotation, then translation. It takes local coordinates to world coordinates. The
/// identity by default.
template <typename T>
struct Pose
{
    Quat<T> rotation;
    Vector3<T> translation;

    constexpr Pose() = default;
    constexpr Pose(const Quat<T>& inRotation, const Vector3<T>& inTranslation)
        : rotation(inRotation)
        , translation(inTranslation)
    {
    }

    static constexpr Pose Identity() { return Pose(); }

    /// Directions: the translation plays no part.
    constexpr Vector3<T> Rotate(const Vector3<T>& v) const { return rotation.Rotate(v); }
    constexpr Vector3<T> InverseRotate(const Vector3<T>& v) const { return rotation.InverseRotate(v); }

    /// Points, local to world.
    constexpr Vector3<T> Transform(const Vector3<T>& v) const { return Rotate(v) + translation; }
    constexpr Vector3<T> Apply(const Vector3<T>& v) const { return Transform(v); }

    /// Points, world to local.
    constexpr Vector3<T> InverseTransform(const Vector3<T>& v) const
    {
        return InverseRotate(v - translation);
    }

    /// The inverse, for a unit rotation.
    constexpr Pose Inverted() const
    {
        return Pose(rotation.Inverted(), rotation.Inverted().Rotate(-translation));
    }

    /// worldFromChild = worldFromLocal * localFromChild.
    constexpr Pose operator*(const Pose& b) const
    {
        return Pose(rotation * b.rotation, Apply(b.translation));
    }
};

} // namespace TAL
