// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/SyntheticHand.h"

#include "math/Aliases.h"
#include "tests/data_sources/hand/HandChain.h"
#include "velk_core/core/TimeProvider.h"

namespace velk::data_source
{
namespace
{

using Mode = SyntheticHand::WristLockMode;

const Quatf kQuarter = Quatf::FromRotationVector({0.0f, 1.5707964f, 0.0f});

// Feeds a hand at an x, not turned, on a clock that the test moves. The four transitions are linear and take
// 1, 2, 4 and 8 seconds.
struct SyntheticHandTest : testing::Test
{
    float now = 100.0f;
    core::TimeProvider clock{[this] { return now; }};
    SyntheticHand::Config config{curve(1.0f), curve(2.0f), curve(4.0f), curve(8.0f)};
    HandChain<SyntheticHand> chain{1, config};
    SyntheticHand& hand = *chain.modifier;

    utility::ProgressCurve curve(float duration)
    {
        return {[](float t) { return t; }, duration, clock};
    }
    /// The wrist that is shown after some more seconds.
    Posef after(float seconds, float x = 0.0f)
    {
        now += seconds;
        return chain.feed(handAt(x)).rootPose;
    }
    void lock(float x, float factor, bool skip)
    {
        hand.lockWristPose({kQuarter, {x, 0.0f, 0.0f}}, factor, Mode::PositionAndRotation, skip);
    }
    void expectTurn(const Quatf& rotation, float share)
    {
        EXPECT_NEAR(rotation.Dot(Quatf().Lerp(kQuarter, share)), 1.0f, 1e-6f);
    }
};

TEST_F(SyntheticHandTest, FollowsItsSourceOnceItsClockIsPastTheTransition)
{
    EXPECT_EQ(after(0.0f, 3.0f).translation.x, 3.0f);
    const HandData scaled = handAt(0.0f, kQuarter * -2.0f);
    const HandData& shown = chain.feed(scaled);
    expectTurn(shown.rootPose.rotation, 1.0f);        // of unit length, and of the identity's sign
    EXPECT_EQ(shown.joints[0].w, scaled.joints[0].w); // joints are left alone
    now = 0.5f; // a quarter of a transition that never started: from the identity
    EXPECT_EQ(chain.feed(4.0f), 1.0f);
}

TEST_F(SyntheticHandTest, LocksAtOnceAndFollowsAMovingTarget)
{
    lock(2.0f, 1.0f, true);
    EXPECT_EQ(after(0.0f, 1.0f).translation.x, 2.0f);
    expectTurn(after(0.0f).rotation, 1.0f);
    lock(5.0f, 0.5f, false); // restarts nothing
    EXPECT_EQ(after(0.0f, 1.0f).translation.x, 3.0f);
    EXPECT_EQ(after(0.0f, 2.0f).translation.x, 3.5f);
    expectTurn(after(0.0f).rotation, 0.5f);
}

TEST_F(SyntheticHandTest, EasesFromTheWristShownLastAlsoInMidTransition)
{
    after(0.0f);
    lock(1.0f, 1.0f, false);
    EXPECT_EQ(after(0.5f).translation.x, 0.5f);
    hand.freeWrist(Mode::PositionAndRotation);
    EXPECT_EQ(after(0.0f).translation.x, 0.5f);
    now += 1.0f;
    EXPECT_EQ(hand.updateData(), Result::Unchanged); // no news: the transition waits to be shown
    EXPECT_EQ(hand.getData().rootPose.translation.x, 0.5f);
    EXPECT_EQ(after(0.0f).translation.x, 0.25f);
    EXPECT_EQ(after(1.0f, 4.0f).translation.x, 4.0f);
    hand.freeWrist(Mode::Position); // free already: no new transition
    EXPECT_EQ(after(0.0f, 5.0f).translation.x, 5.0f);
}

TEST_F(SyntheticHandTest, ReadsTheRotationsCurveByTheFlagOfThePosition)
{
    after(0.0f);
    // Its unlock curve is read, which was never started and counts as finished.
    hand.lockWristRotation(kQuarter, 1.0f, false);
    expectTurn(after(0.0f).rotation, 1.0f);
    hand.lockWristPosition({1.0f, 0.0f, 0.0f}, 1.0f, true); // from here its lock curve is
    expectTurn(after(1.0f).rotation, 0.25f);
    hand.freeWrist(Mode::Position);
    EXPECT_EQ(after(1.0f).translation.x, 0.5f);
    expectTurn(after(0.0f).rotation, 1.0f); // still locked
}

} // namespace
} // namespace velk::data_source
