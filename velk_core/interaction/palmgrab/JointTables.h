// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandJointId.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>

namespace velk::interaction::grab
{

/// The joints that a table lists for a finger, up to four of them.
class JointList
{
public:
    constexpr JointList(std::initializer_list<HandJointId> joints)
        : size_(joints.size())
    {
        std::ranges::copy(joints, joints_.data());
    }

    constexpr std::span<const HandJointId> joints() const { return {joints_.data(), size_}; }

private:
    std::array<HandJointId, 4> joints_ = {};
    std::size_t size_;
};

/// The library's model of a hand: which joints a measurement reads. All are indexed by finger, and constant.
namespace joint_tables
{
using enum HandJointId;
using FingerTable = std::array<JointList, kNumHandFingers>;

/// The chain whose inner joints' bends make up the curl.
inline constexpr FingerTable CURL_ANGLE_JOINTS = {{
    {ThumbBase, ThumbProximal, ThumbDistal, ThumbTip},
    {IndexProximal, IndexMid, IndexDistal, IndexTip},
    {MiddleProximal, MiddleMid, MiddleDistal, MiddleTip},
    {RingProximal, RingMid, RingDistal, RingTip},
    {PinkyProximal, PinkyMid, PinkyDistal, PinkyTip},
}};

/// The joint whose up direction gives the flexion.
inline constexpr std::array<HandJointId, kNumHandFingers> KNUCKLE_JOINTS = {
    ThumbProximal, IndexProximal, MiddleProximal, RingProximal, PinkyProximal};

// GetJointsAffected answers from these. The measurements read other joints: the curl one more, the flexion
// the knuckle alone, the thumb's spread ThumbProximal instead of ThumbBase.
inline constexpr FingerTable CURL_LINE_JOINTS = {{
    {ThumbProximal, ThumbDistal, ThumbTip},
    {IndexMid, IndexDistal, IndexTip},
    {MiddleMid, MiddleDistal, MiddleTip},
    {RingMid, RingDistal, RingTip},
    {PinkyMid, PinkyDistal, PinkyTip},
}};

inline constexpr FingerTable FLEXION_LINE_JOINTS = {{
    {ThumbBase, ThumbProximal, ThumbDistal},
    {IndexProximal, IndexMid, IndexDistal},
    {MiddleProximal, MiddleMid, MiddleDistal},
    {RingProximal, RingMid, RingDistal},
    {PinkyProximal, PinkyMid, PinkyDistal},
}};

inline constexpr FingerTable ABDUCTION_LINE_JOINTS = {{
    {ThumbTip, ThumbBase, IndexProximal, IndexTip},
    {IndexTip, IndexProximal, MiddleProximal, MiddleTip},
    {MiddleTip, MiddleProximal, RingProximal, RingTip},
    {RingTip, RingProximal, PinkyProximal, PinkyTip},
    {},
}};

inline constexpr FingerTable OPPOSITION_LINE_JOINTS = {{
    {},
    {ThumbTip, IndexTip},
    {ThumbTip, MiddleTip},
    {ThumbTip, RingTip},
    {ThumbTip, PinkyTip},
}};

} // namespace joint_tables
} // namespace velk::interaction::grab
