// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <velk/velk.h>

namespace velk_tools
{

enum class Side
{
    Left,
    Right
};

enum class Device
{
    Head,
    Left,
    Right
};

inline constexpr std::array<std::string_view, 2> kSideNames{"left", "right"};
inline constexpr std::array<std::string_view, 3> kDeviceNames{"head", "left", "right"};
inline constexpr std::array<std::string_view, 5> kFingerNames{"thumb", "index", "middle", "ring", "pinky"};
inline constexpr std::array<std::string_view, 4> kAlignmentNames{"none", "close", "middle", "far"};
inline constexpr std::array<std::string_view, VELK_HAND_JOINT_COUNT> kJointNames{
    "Root0",         "Root1",    "ThumbRoot",   "ThumbBase",      "ThumbProximal", "ThumbDistal",
    "IndexProximal", "IndexMid", "IndexDistal", "MiddleProximal", "MiddleMid",     "MiddleDistal",
    "RingProximal",  "RingMid",  "RingDistal",  "PinkyBase",      "PinkyProximal", "PinkyMid",
    "PinkyDistal",   "ThumbTip", "IndexTip",    "MiddleTip",      "RingTip",       "PinkyTip"};

inline std::string_view nameOf(Side side)
{
    return kSideNames[static_cast<std::size_t>(side)];
}

inline std::string_view alignmentName(int alignment)
{
    return kAlignmentNames[static_cast<std::size_t>(alignment)];
}

/// Where a name stands in one of the tables above.
template <std::size_t N>
std::optional<std::size_t> indexOf(const std::array<std::string_view, N>& names, std::string_view name)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (names[i] == name) {
            return i;
        }
    }
    return std::nullopt;
}

} // namespace velk_tools
