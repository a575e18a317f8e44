// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace velk::interaction::grab
{

/// A finger of a hand. Index of every per-finger table; the C interface has the same numbers.
enum class HandFinger : int32_t
{
    NoFinger = -1,
    Thumb = 0,
    Index = 1,
    Middle = 2,
    Ring = 3,
    Pinky = 4,
};

inline constexpr std::size_t kNumHandFingers = 5;

} // namespace velk::interaction::grab
