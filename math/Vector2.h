// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace TAL
{

/// A pair of scalars, zero by default. It carries values and has no arithmetic.
template <typename T>
struct Vector2
{
    T x = T(0);
    T y = T(0);

    constexpr Vector2() = default;
    constexpr Vector2(T inX, T inY)
        : x(inX)
        , y(inY)
    {
    }

    static const Vector2 ZERO;
};

template <typename T>
constexpr Vector2<T> Vector2<T>::ZERO{};

} // namespace TAL
