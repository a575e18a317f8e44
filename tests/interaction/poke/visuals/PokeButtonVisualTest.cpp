// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/visuals/PokeButtonVisual.h"
#include "math/Aliases.h"
#include "tests/support/PokeScene.h"

#include <optional>

namespace velk::test
{

struct ButtonVisual : PokeScene
{
    float extent() const { return visual.getCurrentExtent() / kUnit; }
    float extentWith(Finger& moved, float height)
    {
        moved.at(0, height);
        return extent();
    }

    Posef base{Quatf::FromRotationVector({0, 1.5707964f, 0}), units(100, 0, 0)}; // +z turned to +x
    interaction::PokeButtonVisual visual{add().interactable, base, 20 * kUnit};
};

TEST_F(ButtonVisual, TheCapStaysUnderTheLowestFinger)
{
    EXPECT_EQ(extent(), 20);
    for (const auto& [height, wanted] :
         {std::pair<float, float>{30, 20}, {20, 20}, {10, 10}, {-30, 0}, {5, 5}, {500, 20}}) {
        EXPECT_EQ(extentWith(finger, height), wanted) << height;
    }
    const Posef cap = visual.getCurrentPose();
    EXPECT_NEAR(cap.translation.x, 120 * kUnit, 1e-6f); // rounding of the turn
    EXPECT_EQ(cap.rotation.y, base.rotation.y);
}

// The frames of one finger are followed; when it leaves, those of the next, without an update in between.
TEST_F(ButtonVisual, FollowsTheFramesOfOneFinger)
{
    std::optional<Finger> other = makeFinger("b");
    other->at(0, 500);
    EXPECT_EQ(extentWith(finger, 10), 10);
    EXPECT_EQ(extentWith(*other, 8), 10);
    EXPECT_EQ(extentWith(finger, 10), 8);
    EXPECT_EQ(extentWith(*other, 5), 8);
    EXPECT_EQ(extentWith(finger, 500), 8);
    EXPECT_EQ(extentWith(*other, 4), 4);
    other.reset();
    EXPECT_EQ(extent(), 20);
}

TEST_F(ButtonVisual, ANewBaseTakesEffectAtOnceAlsoWithoutTheInteractable)
{
    finger.at(0, 10);
    visual.updateBasePose({}, 6 * kUnit);
    EXPECT_EQ(visual.getCurrentPose().translation.z, 6 * kUnit);
    visual.updateBasePose(base, -6 * kUnit);
    EXPECT_EQ(extent(), 0);
    buttons.clear();
    EXPECT_EQ(extentWith(finger, 10), -6);
    visual.updateBasePose(base, 20 * kUnit);
    EXPECT_EQ(extent(), 20);
}

// Destroyed, or given another interactable, with a finger on the first.
TEST_F(ButtonVisual, LetsGoOfTheFingerThatItFollows)
{
    auto other = std::make_unique<interaction::PokeButtonVisual>(buttons.at("").interactable, base, 1.0f);
    finger.at(0, 10);
    other.reset();
    visual.setPokeInteractable(add("2", {{}, units(300, 0, 0)}).interactable, base, 8 * kUnit);
    EXPECT_EQ(extentWith(finger, 5), 8);
    finger.at(300, 5);
    EXPECT_EQ(extent(), 5);
}

} // namespace velk::test
