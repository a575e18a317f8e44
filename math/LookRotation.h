// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Math.h"
#include "math/Quat.h"
#include "math/Vector3.h"
#include "math/VectorHelpers.h"

namespace velk::math::quaternion
{

/// Quat::LookRotation with a usable up: a zero `up` becomes (0, 1, 0), and an `up` parallel to
/// `forward` is replaced by another one. A zero `forward` stays degenerate.
template <typename T>
TAL::Quat<T> lookRotationSafe(const TAL::Vector3<T>& forward, const TAL::Vector3<T>& up)
{
    const T tolerance = TAL::Math<T>::Tolerance();
    TAL::Vector3<T> usableUp = up;
    if (usableUp.IsEqual(TAL::Vector3<T>::ZERO, tolerance)) {
        usableUp = velk::math::vector3::up<T>();
    }
    // Cycling the components leaves the parallel direction for any forward along an axis.
    if (forward.Cross(usableUp).IsEqual(TAL::Vector3<T>::ZERO, tolerance)) {
        usableUp = TAL::Vector3<T>(usableUp.y, usableUp.z, usableUp.x);
    }
    return TAL::Quat<T>::LookRotation(forward, usableUp);
}

template <typename T>
TAL::Quat<T> lookRotationSafe(const TAL::Vector3<T>& forward)
{
    return lookRotationSafe<T>(forward, TAL::Vector3<T>::ZERO);
}

} // namespace velk::math::quaternion
