// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace velk::interaction::grab
{

/// Where a joint stands in every hand array of the library. The tips stand together at the end, in finger
/// order. Root0, Root1, ThumbRoot and PinkyBase are carried along; what they are is up to the host's hand
/// model.
enum class HandJointId : int32_t
{
    Root0 = 0,
    Root1 = 1,
    ThumbRoot = 2,
    ThumbBase = 3,
    ThumbProximal = 4,
    ThumbDistal = 5,
    IndexProximal = 6,
    IndexMid = 7,
    IndexDistal = 8,
    MiddleProximal = 9,
    MiddleMid = 10,
    MiddleDistal = 11,
    RingProximal = 12,
    RingMid = 13,
    RingDistal = 14,
    PinkyBase = 15,
    PinkyProximal = 16,
    PinkyMid = 17,
    PinkyDistal = 18,
    ThumbTip = 19,
    IndexTip = 20,
    MiddleTip = 21,
    RingTip = 22,
    PinkyTip = 23,
};

inline constexpr std::size_t kNumHandJoints = 24;

} // namespace velk::interaction::grab
