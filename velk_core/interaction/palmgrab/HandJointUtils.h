// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandJointId.h"

#include <array>
#include <cstddef>

namespace velk::interaction::grab
{

/// The place of a joint in an array of joints.
constexpr std::size_t toIndex(HandJointId joint)
{
    return static_cast<std::size_t>(joint);
}

/// The place of a finger in an array of fingers. `NoFinger` lands past the end of any of them.
constexpr std::size_t toIndex(HandFinger finger)
{
    return static_cast<std::size_t>(finger);
}

/// Where a finger begins and ends among the joints. The finger is used as an index and isn't tested.
struct HandJointUtils
{
    static constexpr std::array<HandJointId, kNumHandFingers> _handFingerProximals = {
        HandJointId::ThumbProximal, HandJointId::IndexProximal, HandJointId::MiddleProximal,
        HandJointId::RingProximal, HandJointId::PinkyProximal};

    static constexpr HandJointId getHandFingerProximal(HandFinger finger)
    {
        return _handFingerProximals[toIndex(finger)];
    }

    static constexpr int getFingerOfTip(HandJointId tip)
    {
        return static_cast<int>(tip) - static_cast<int>(HandJointId::ThumbTip);
    }

    static constexpr HandJointId getHandFingerTip(HandFinger finger)
    {
        return static_cast<HandJointId>(static_cast<int>(finger) + static_cast<int>(HandJointId::ThumbTip));
    }
};

} // namespace velk::interaction::grab
