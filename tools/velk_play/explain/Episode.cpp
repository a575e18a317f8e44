// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "explain/Episode.h"

#include <array>
#include <cmath>

namespace velk_tools
{

float Reason::margin() const
{
    return std::abs(value - limit);
}

std::string_view nameOf(Happening happening)
{
    constexpr std::array<std::string_view, 9> kNames{"hover",   "press", "release", "cancel", "recoil",
                                                     "unhover", "start", "end",     "miss"};
    return kNames[static_cast<std::size_t>(happening)];
}

} // namespace velk_tools
