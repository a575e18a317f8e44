// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"

namespace velk::math::vector3
{

/// The up direction, (0, 1, 0).
template <typename T>
const TAL::Vector3<T>& up()
{
    static const TAL::Vector3<T> direction(T(0), T(1), T(0));
    return direction;
}

} // namespace velk::math::vector3
