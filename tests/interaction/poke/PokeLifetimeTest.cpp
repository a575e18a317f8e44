// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "tests/support/PokeScene.h"
#include "velk_core/core/IPosition.h"

#include <limits>
#include <optional>

namespace velk::test
{

using PokeLifetime = PokeScene;

constexpr float kNowhere = std::numeric_limits<float>::quiet_NaN();

// Leaves button 1 upward and meets the wall 2, which faces it, on the way: in one update the finger lets go
// of 1 and hovers 2, and the press of 2 waits for the next.
TEST_F(PokeLifetime, APendingPressGoesWithItsInteractable)
{
    for (const bool destroyed : {false, true}) {
        add("1");
        add("2", {Quatf::FromRotationVector({0, -1.5707964f, 0}), units(100, 0, 20)});
        EXPECT_PLAYS(finger, "0,-1:1H(1S1M 110,30:)1s1h2H2M");
        if (destroyed) {
            buttons.erase("2");
        }
        EXPECT_PLAYS(finger, destroyed ? "110,30:2h 50,20:1H1M" : "110,30:(2S2M 50,20:)2s2h1H1M");
        clear();
    }
}

TEST_F(PokeLifetime, DestructionInAnyStateLetsGo)
{
    for (const char* script : {"0,400:-", "0,20:HM", "0,-30:H(SM"}) {
        add();
        EXPECT_PLAYS(finger, script);
        buttons.clear();
        EXPECT_FALSE(finger->hasInteractable() || finger->hasSelectedInteractable());
        park();
        EXPECT_FALSE(finger->isPassedSurface());
    }
    const PokeInteractable& button = *add().interactable;
    EXPECT_PLAYS(makeFinger("b"), "0,500:- 0,-10:bH(bSbM");
    EXPECT_EQ(events.take(), "bsbh");
    EXPECT_EQ(button.getState(), interaction::InteractableState::Normal);
}

// Also where it was disabled before an override, or a press that was pending, led to it.
TEST_F(PokeLifetime, DestructionOfADisabledOneLetsGo)
{
    PokeInteractable* const button = add().interactable.get();
    finger->setComputeCandidateOverride([button] { return button; }, true);
    button->disable();
    finger.at(0, 500);
    EXPECT_TRUE(finger->hasInteractable());
    buttons.clear();
    EXPECT_FALSE(finger->hasInteractable() || finger->hasCandidate());
    finger->clearComputeCandidateOverride();
    EXPECT_EQ(finger.at(0, 500), "-");
    EXPECT_EQ(finger->getState(), interaction::InteractorState::Normal);
}

// It is not the one hovered last, for which the exit limits would hold, and it has not moved here from where
// the former one was, which would press it.
TEST_F(PokeLifetime, AnAddressUsedAgainIsANewInteractable)
{
    std::optional<PokeInteractable> place;
    const auto put = [&](float height) {
        const Button button(config, {{}, units(0, 0, height)});
        place.emplace(config, button.clippedTo({}, {}), nullptr);
        listen(*place, "");
    };
    put(0);
    EXPECT_PLAYS(finger, "0,20:HM");
    put(-20);
    EXPECT_PLAYS(finger, "0,20:h");
    put(40);
    EXPECT_PLAYS(finger, "0,20:-");
}

// A new finger comes from the world's origin, or from where its source stood when it was made.
TEST_F(PokeLifetime, TheFirstSweepStartsAtTheOrigin)
{
    struct Source : input::IPosition
    {
        Vector3f getPosition() const override { return units(0, 0, height); }
        float height = -80;
    };
    const auto source = std::make_shared<Source>();
    addAt("", 0, -50);
    Finger sourced = makeFinger("s", nullptr, nullptr, source);
    source->height = -90;
    EXPECT_EQ(sourced.at(0, 0), "-");
    EXPECT_EQ(makeFinger("f").at(0, -80), "fH(fSfM");
}

// What hosts are told to do in a first frame and after a gap: update again once the finger stands in front of
// what it could press; where a press may be going on, update well in front of it first. A finger at no
// position at all presses nothing either, then or in the next frame.
TEST_F(PokeLifetime, NothingBetweenIsPressedByTheRecipes)
{
    addAt("1", 0, -50);
    add("2", {Quatf::FromRotationVector({0, -1.5707964f, 0}), units(100, 0, -40)}); // faces -x
    Finger fresh = makeFinger("");
    EXPECT_PLAYS(fresh, "0,-40:1H1M 0,-60:(1S1M 0,300:)1s1h 200,-40:- 0,-40:1H1M");
    EXPECT_EQ(fresh.at(kNowhere, kNowhere), "1h");
    EXPECT_PLAYS(fresh, "0,-60:- 0,-70:- 0,-30:1H1M");
}

// It counts as past the surface until its next press ends.
TEST_F(PokeLifetime, ADisabledFingerLetsGoAndMustComeFromAbove)
{
    add();
    EXPECT_PLAYS(finger, "0,-10:H(SM");
    finger->disable();
    EXPECT_PLAYS(finger, "0,-10:sh 0,-20:- 0,20:HM 0,0:SM 0,20:)sM");
}

} // namespace velk::test
