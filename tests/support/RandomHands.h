// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandPinchData.h"
#include "velk_core/interaction/palmgrab/FingerShapes.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace velk::test
{

/// Equal bits, or both NaN.
inline bool isSame(float a, float b)
{
    return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b) || (std::isnan(a) && std::isnan(b));
}

/// Hands of joints anywhere in a decimetre, or all on one line; in some of them one number is odd, or joints
/// coincide.
class RandomHands
{
public:
    explicit RandomHands(uint32_t seed)
        : random_(seed)
    {
    }

    data::HandPinchData makePositions()
    {
        data::HandPinchData hand;
        const bool isFlat = pick(8) == 0;
        for (Vector3f& position : hand.jointPositions) {
            position = isFlat ? Vector3f(number(), 0.0f, 0.0f) : Vector3f(number(), number(), number());
        }
        const std::size_t joint = pick(hand.jointPositions.size());
        if (pick(4) == 0) {
            hand.jointPositions[joint].y = odd();
        } else if (pick(4) == 0) {
            hand.jointPositions[joint] = hand.jointPositions[pick(hand.jointPositions.size())];
        }
        return hand;
    }

    interaction::grab::FingerShapes::JointPoses makePoses()
    {
        interaction::grab::FingerShapes::JointPoses poses;
        const data::HandPinchData positions = makePositions();
        for (std::size_t i = 0; i < poses.size(); ++i) {
            const Quatf turn(number(), number(), number(), number());
            poses[i] = {pick(16) == 0 ? turn : turn.Normalized(), positions.jointPositions[i]};
        }
        Quatf& turn = poses[pick(poses.size())].rotation;
        if (pick(4) == 0) {
            turn = Quatf(0.0f, 0.0f, 0.0f, 0.0f);
        } else if (pick(8) == 0) {
            turn.w = odd();
        }
        return poses;
    }

private:
    float number() { return std::uniform_real_distribution<float>(-0.1f, 0.1f)(random_); }
    std::size_t pick(std::size_t count) { return random_() % count; }
    float odd()
    {
        constexpr float kInfinity = std::numeric_limits<float>::infinity();
        constexpr std::array kOdd{kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN(),
                                  0.0f,      -0.0f,      1.0e30f,
                                  -1.0e30f,  1.0e-40f};
        return kOdd[pick(kOdd.size())];
    }

    std::mt19937 random_;
};

} // namespace velk::test
