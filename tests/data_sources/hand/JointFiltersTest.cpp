// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/JointFilters.h"

#include "math/Aliases.h"
#include "tests/support/RecordedHand.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace velk::data_source
{
namespace
{

using Joints = std::vector<Quatf>;
using TAL::OneEuroParams;

// What lanes have to give, bit by bit.
Joints oneByOne(std::vector<TAL::OneEuroFilter<Quatf>>& filters, const Joints& joints,
                const OneEuroParams& params, float deltaTime)
{
    Joints result;
    for (std::size_t i = 0; i < joints.size(); ++i) {
        Quatf q = joints[i].Normalized();
        if (std::isfinite(q.x) && std::isfinite(q.y) && std::isfinite(q.z) && std::isfinite(q.w)) {
            filters[i].params = params;
            q = filters[i].Filter(q, deltaTime);
        }
        result.push_back(q);
    }
    return result;
}

struct Frame
{
    Joints joints;
    OneEuroParams params;
    float deltaTime;
};

void expectSameBits(const std::vector<Frame>& frames)
{
    const std::size_t count = frames.front().joints.size();
    for (RotationFilterFunction* const lanes : {rotationFilterOfFour(), rotationFilterOfEight()}) {
        if (lanes == nullptr) {
            continue;
        }
        JointFilters filters(count, lanes);
        std::vector<TAL::OneEuroFilter<Quatf>> reference(count);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            const auto& [joints, params, deltaTime] = frames[i];
            const Joints expected = oneByOne(reference, joints, params, deltaTime);
            Joints actual(count);
            filters.filter(joints.data(), actual.data(), params, deltaTime);
            ASSERT_EQ(std::memcmp(actual.data(), expected.data(), count * sizeof(Quatf)), 0)
                << "frame " << i << (lanes == rotationFilterOfEight() ? ", eight lanes" : ", four lanes");
        }
    }
}

TEST(JointFilters, GiveByLanesTheBitsOfOneFilterAfterTheOtherOnRecordedHands)
{
    for (const std::string file : {"pinch_57hz", "fist_54hz", "video_landmarks_30hz"}) {
        std::vector<Frame> frames;
        for (const auto& row : tests::readRecording("motion/joints24/" + file + ".csv", "right")) {
            Frame& frame = frames.emplace_back(Frame{Joints(24), {1.0f, 1.0f, 2.0f}, 0.02f});
            for (std::size_t i = 0; i < frame.joints.size(); ++i) {
                frame.joints[i] = row.poses[i + 1].rotation;
            }
        }
        ASSERT_FALSE(frames.empty());
        expectSameBits(frames);
    }
}

class RandomHands
{
public:
    explicit RandomHands(unsigned seed)
        : random_(seed)
    {
    }

    // Some turn, some rest, some are what no hand is.
    Joints next(std::size_t count, unsigned oddOnes)
    {
        Joints joints(count);
        for (std::size_t i = 0; i < count; ++i) {
            const unsigned kind = random_() % 32;
            joints[i] = kind < 8 ? Quatf() : Quatf(number(1), number(1), number(1), number(1));
            if (random_() % 100 < oddOnes) {
                (&joints[i].x)[random_() % 4] = oddNumber();
            }
        }
        return joints;
    }
    float number(int decades)
    {
        return std::pow(10.0f, uniform() * float(decades)) * (uniform() < 0.0f ? -1.0f : 1.0f);
    }
    float uniform() { return std::uniform_real_distribution<float>(-1.0f, 1.0f)(random_); }

private:
    float oddNumber()
    {
        using Limits = std::numeric_limits<float>;
        const std::array<float, 10> numbers = {Limits::quiet_NaN(),
                                               -Limits::quiet_NaN(),
                                               Limits::infinity(),
                                               -Limits::infinity(),
                                               Limits::max(),
                                               Limits::denorm_min(),
                                               -0.0f,
                                               0.0f,
                                               1e-20f,
                                               -1e20f};
        return numbers[random_() % numbers.size()];
    }

    std::mt19937 random_;
};

TEST(JointFilters, GiveByLanesTheBitsOfOneFilterAfterTheOtherOnWhatNoHandIs)
{
    for (const unsigned oddOnes : {0U, 1U, 30U}) { // percent
        for (const std::size_t count : {1U, 8U, 24U, 27U}) {
            RandomHands hands(oddOnes + 100 * static_cast<unsigned>(count));
            constexpr int kFrames = 400;
            std::vector<Frame> frames;
            frames.reserve(kFrames);
            for (int i = 0; i < kFrames; ++i) {
                frames.push_back({hands.next(count, oddOnes), {1.0f, 1.0f, 2.0f}, 0.02f});
            }
            expectSameBits(frames);
        }
    }
}

// A cutoff below 0 by beta makes gains that have no bounds, and angles that lanes can't reduce.
TEST(JointFilters, GiveByLanesTheBitsOfOneFilterAfterTheOtherUnderEverySetting)
{
    RandomHands hands(1);
    for (int round = 0; round < 300; ++round) {
        const OneEuroParams params{std::fabs(hands.number(5)), std::fabs(hands.number(5)), hands.number(5)};
        const float deltaTime = round % 10 == 0 ? 0.0f : std::fabs(hands.number(5));
        constexpr int kFrames = 30;
        std::vector<Frame> frames;
        frames.reserve(kFrames);
        for (int i = 0; i < kFrames; ++i) {
            frames.push_back({hands.next(24, 0), params, i == 20 ? 0.0f : deltaTime});
        }
        expectSameBits(frames);
    }
}

} // namespace
} // namespace velk::data_source
