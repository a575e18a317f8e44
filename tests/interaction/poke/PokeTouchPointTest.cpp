// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeTouchPoint.h"

#include "tests/support/MathMatchers.h"

#include <gtest/gtest.h>

namespace velk::interaction
{

namespace
{

struct PokeTouchPointTest : testing::Test
{
    PokeTouchPointTest() { config.dragThresholds = {true, 1.0f, 2.0f, {4.0f, clock}}; }

    /// The local x of the touch point after a frame with the contact at `x`, in a press that began at 0.
    float follow(float x, float normalDelta = 0.0f)
    {
        point.follow(surface, surface.Transform({x, 0.0f, 0.0f}), normalDelta, config);
        return point.getLocalPoint().x;
    }
    void begin()
    {
        point.begin(surface, surface.translation, surface.translation, config.dragThresholds.dragEaseCurve);
    }

    float now = 100.0f; // seconds
    core::TimeProvider clock{[this] { return now; }};
    PokeInteractable::Config config;
    Posef surface;
    PokeTouchPoint point;
};

} // namespace

TEST_F(PokeTouchPointTest, RidesOnTheSurface)
{
    begin();
    surface = {Quatf::FromRotationVector({0.0f, 1.5f, 0.0f}), {3.0f, -4.0f, 5.0f}};
    EXPECT_EQ(follow(0.0f), 0.0f);
    config.dragThresholds.enabled = false;
    point.follow(surface, {3.0f, -3.0f, 5.0f}, 0.0f, config);
    EXPECT_TRUE(test::isNear(point.getLocalPoint(), {0.0f, 1.0f, 0.0f}));
}

// In the order of the table above updateTarget(); the eased way is 0.15625 of it in the first second of four.
TEST_F(PokeTouchPointTest, EachRowOfTheTableOfDrags)
{
    begin();
    EXPECT_EQ(follow(1.5f, 1.75f), 0.0f); // a push: the slide counts from here
    EXPECT_EQ(follow(3.5f), 0.0f);        // slid no farther than the limit
    EXPECT_EQ(follow(3.75f), 0.0f);       // beyond: a drag starts
    now += 1.0f;
    EXPECT_EQ(follow(3.75f), 3.75f * 0.15625f);
    now += 4.0f;
    EXPECT_EQ(follow(8.0f), 8.0f);         // the drag goes on
    EXPECT_EQ(follow(8.5f, 0.75f), 8.5f);  // in, but less than a push
    EXPECT_EQ(follow(10.0f, 1.75f), 8.5f); // interrupted
    EXPECT_EQ(follow(12.0f), 8.5f);        // 2 from where it was
}

TEST_F(PokeTouchPointTest, ANewPressGoesOnWithTheLastEasing)
{
    now = 1.0f; // a curve that was never started counts from 0
    config.dragThresholds.enabled = false;
    begin();
    EXPECT_EQ(follow(16.0f), 16.0f * 0.15625f);
    begin();
    EXPECT_EQ(follow(16.0f), 0.0f); // no progress since
    now = 4.0f;
    EXPECT_EQ(follow(16.0f), 16.0f);
}

} // namespace velk::interaction
