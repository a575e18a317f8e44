// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "tests/support/PokeScene.h"

namespace velk::test
{

using PokePress = PokeScene;

// In the order of the table in PokeInteractor.cpp: what comes before, and the frame of the row.
TEST_F(PokePress, EachRowOfTheTableOfTheCourse)
{
    using enum interaction::InteractorState;
    for (const auto& [before, row, state, recoiled] :
         {std::tuple{"0,10:HM", "0,-1:(SM", Select, false},                 // crosses inward
          {"0,10:HM 0,-1:(SM", "0,3:)sM", Hover, false},                    // rises
          {"0,10:HM 0,-1:(SM", "0,-257:C)sh", Normal, false},               // too deep
          {"0,10:HM 0,-1:(SM", "88,-1:C)sh", Normal, false},                // too far along
          {"0,10:HM 0,-40:(SM", "0,-23:sM", Hover, true},                   // retreats
          {"0,10:HM 0,-40:(SM 0,-23:sM 0,-20:M", "0,-37:SM", Select, true}, // goes in again
          {"0,10:HM 0,-40:(SM 0,-23:sM", "0,3:)M", Hover, false},           // rises
          {"0,10:HM 0,-40:(SM 0,-23:sM", "0,-257:C)M", Hover, false},       // too deep
          {"0,10:HM 0,-40:(SM 0,-23:sM", "88,-23:C)M", Hover, false}}) {    // too far along
        add();
        EXPECT_PLAYS(finger, before);
        EXPECT_PLAYS(finger, row) << before;
        EXPECT_EQ(finger->getState(), state) << row;
        EXPECT_EQ(finger->isPassedSurface(), state == Select || recoiled) << row;
        park(); // a recoil ends here, the hover in the next frame
        clear();
    }
}

// Begin.

TEST_F(PokePress, BeginsAtFirstContactOfTheSkin)
{
    add();
    EXPECT_PLAYS(finger, "0,100:- 0,1:HM 0,0:(SM 0,-1:M");
    park();
    EXPECT_PLAYS(finger, "0,100:- 0,0:H(SM 0,40:)sM"); // out of nowhere, through hover, in one update
    clear();
    add();
    EXPECT_PLAYS(finger, "55,10:- 55,-1:- 54,1:HM 54,-1:(SM"); // within a radius of the edge
    park();
    EXPECT_PLAYS(finger, "0,40:- 53,-2:H(SM"); // by where the skin touches, not by where the centre goes to
}

// The centre's way decides, at the point where it went through: here at 52, then at 58.5.
TEST_F(PokePress, ThroughInOneFrameCountsWhereItWentThrough)
{
    add();
    EXPECT_PLAYS(finger, "0,3000:- 55,-200:H(SM 0,100:)sh 80,-60:H(SM 80,200:)sh 0,100:- 90,-60:-");
}

TEST_F(PokePress, NeverFromBehindFromTheSideOrFromWithin)
{
    add();
    EXPECT_PLAYS(finger, "300,500:- 300,-300:- 0,-300:- 0,-5:- 0,40:-"); // outward, from behind
    EXPECT_PLAYS(finger, "300,0:- 0,0:- 0,-1:-");   // along the surface, then inward but begun at it
    EXPECT_PLAYS(finger, "0,1:HM 20,1:M 20,0:(SM"); // along it above, then inward
}

TEST_F(PokePress, ASurfacePressesByItsOwnMovement)
{
    const Button& button = add();
    EXPECT_PLAYS(finger, "0,10:HM");
    button.moveTo(0, -200);
    EXPECT_PLAYS(finger, "0,10:h");
    button.moveTo(0, 20); // through the resting finger
    EXPECT_PLAYS(finger, "0,10:H(SM");
    button.moveTo(3, 21); // the touch point rides on it
    EXPECT_PLAYS(finger, "0,10:M@3");
    EXPECT_EQ(finger->getTouchPoint().z, 21 * kUnit);
    EXPECT_EQ(finger->getTouchNormal().z, 1);
    EXPECT_PLAYS(finger, "0,24:)sM");
    button.moveTo(0, -10); // away from the finger that follows, faster
    EXPECT_PLAYS(finger, "0,5:M");
}

// Also for a finger that never saw it move, and long after: it has come from 80 down to 40, and rested.
TEST_F(PokePress, ASurfacePressesFromWhereItRested)
{
    const Button& button = add("", {{}, units(0, 0, 80)});
    finger.at(0, 500);
    button.moveTo(0, 40);
    for (int i = 0; i < 200; ++i) {
        finger.at(0, 500);
    }
    Finger late = makeFinger("b");
    EXPECT_PLAYS(late, "0,500:- 0,60:bHbM");
    button.moveTo(0, 70);
    EXPECT_PLAYS(late, "0,60:(bSbM");
}

// The same whichever way the scene is turned, in radians, and wherever it stands, in metres.
TEST_F(PokePress, IsTheSameInEveryFrame)
{
    for (const auto& [turn, place] : {std::pair<Vector3f, Vector3f>{{1.5f, 0, 0}, {0, 1, 0}},
                                      {{0, 2.5f, 0}, {0.5f, 0, -2}},
                                      {{0.5f, -1, 2}, {-3, 1.5f, 0.25f}}}) {
        frame = {Quatf::FromRotationVector(turn), place};
        park();
        add();
        EXPECT_PLAYS(finger, "49,20:HM 49,-10:(SM 60,-40:M 60,-20:sM 49,-45:SM 49,10:s)M 70,10:h 70,-10:-");
        clear();
    }
}

// A press is refused for the sake of a surface closely behind the one that it would press.
TEST_F(PokePress, IsVetoedByACloseSurfaceBehind)
{
    const auto press = [this](float behind, float x, float closeDistance, int score, float tangentBehind,
                              float from = 500) {
        config.enterHoverTangent = 8 * kUnit;
        addAt("1", 0, 10).setTiebreakerScore(score);
        config.enterHoverTangent = tangentBehind * kUnit;
        config.exitHoverTangent = 20 * kUnit;
        config.minThresholds.enabled = true;
        addAt("2", x, 10 - behind).setCloseDistanceThreshold(closeDistance * kUnit);
        addAt("3", 0, -3000); // out of range
        finger.at(58, from);
        std::string raised = finger.at(58, -10); // 4 beside the first
        finger.at(300, 500);
        clear();
        config.minThresholds.enabled = false;
        return raised;
    };
    EXPECT_EQ(press(4, 0, 0, 0, 4), "1H(1S1M");    // no close distance
    EXPECT_EQ(press(5, 0, 4, 0, 4), "1H(1S1M");    // beyond it
    EXPECT_EQ(press(4, 0, 4, 0, 4), "-");          // at it
    EXPECT_EQ(press(300, 0, 300, 0, 4), "-");      // far from the finger
    EXPECT_EQ(press(4, 0, 4, 0, 3), "1H(1S1M");    // farther beside it than it admits
    EXPECT_EQ(press(4, -1, 4, 0, 5), "1H(1S1M");   // farther beside it than beside the pressed one
    EXPECT_EQ(press(4, 0, 4, 0, 4, 12), "(1S1M");  // not begun clearly above it
    EXPECT_EQ(press(0.5f, 0, 4, 0, 4), "-");       // equally far
    EXPECT_EQ(press(0.5f, 0, 4, 1, 4), "1H(1S1M"); // equally far with a lower score
    EXPECT_EQ(press(1, 0, 4, 1, 4), "-");          // not equally far any more
}

// End.

TEST_F(PokePress, EndsAboveTheReleaseHeightAndNotTwiceAtItsEdge)
{
    add();
    EXPECT_PLAYS(finger, "0,0:H(SM 0,2:M 0,1:M 0,2:M 0,0:M 0,3:)sM 0,2:M 0,3:M 0,0:(SM 0,400:)sh");
}

// The side limit counts from the edge, to the skin: 50 + 4 + 32.
TEST_F(PokePress, IsCancelledTooDeepOrTooFarToTheSide)
{
    add();
    EXPECT_PLAYS(finger, "0,-1:H(SM 0,-256:M 0,-257:C)sh");
    park();
    EXPECT_PLAYS(finger, "0,-1:H(SM 86,-1:M 87,-1:C)sh 87,500:- 0,20:HM 0,-257:(SC)sh");
    clear();
    config.cancelSelectNormal = 0;
    config.cancelSelectTangent = 0;
    add();
    EXPECT_PLAYS(finger, "0,-1:H(SM 5000,-5000:M");
}

TEST_F(PokePress, ACancelledFingerMustComeFromAboveAgain)
{
    add();
    EXPECT_PLAYS(finger, "0,-1:H(SM 0,-257:C)sh 0,-257:- 0,-200:- 0,-220:- 0,1:HM 0,-200:(SM");
}

// A retreat of more than 16 from the deepest point recoils; more than 16 in from the shallowest point since
// presses again. All the while the finger is past the surface.
TEST_F(PokePress, RecoilsAndPressesAgain)
{
    add();
    EXPECT_PLAYS(finger, "0,0:H(SM 0,-30:M 0,-14:M 0,-13:sM 0,-29:M 0,-4:M 0,-20:M 0,-21:SM");
    EXPECT_PLAYS(finger, "0,-60:M 0,-43:sM 0,-80:SM 0,-50:sM 0,3:)M");  // ends above the release height
    EXPECT_PLAYS(finger, "0,0:(SM 0,-30:M 0,-10:sM 0,-30:SM 0,10:s)M"); // and so it does after a second press
    buttons.at("").interactable->getConfig().recoilAssist.enabled = false;
    EXPECT_PLAYS(finger, "0,-200:(SM 0,2:M 0,3:)sM");
}

TEST_F(PokePress, ARecoilEndsByCancelOrWithItsInteractable)
{
    add();
    EXPECT_PLAYS(finger, "0,-30:H(SM 0,-13:sM 87,-13:C)M 87,-13:h 87,100:- 0,100:- 0,-30:H(SM 0,-13:sM");
    addAt("2", 300, 0);
    buttons.erase("2"); // not its own
    EXPECT_PLAYS(finger, "0,-13:M 0,-30:SM 0,-13:sM");
    buttons.clear();
    EXPECT_EQ(events.take(), "h)");
}

// Touch point.

TEST_F(PokePress, ASlideWhilePushingIsNoDrag)
{
    for (const char* script : {"0,0:H(SM 3,-8:M@0 9,-8:M@0 9,-8:M@1.40625", // too little to be a push: a drag
                               "0,0:H(SM 3,-9:M@0 9,-9:M@0 9,-9:M@0",       // a push; the slide counts from 3
                               "0,0:H(SM 9,-9:M@0 9,-9:M@1.40625",          // sideways as much as in
                               "0,0:H(SM 9,-10:M@0 9,-10:M@0"}) {           // mainly in
        add();
        EXPECT_PLAYS(finger, script);
        clear();
    }
}

TEST_F(PokePress, DragsEasesAndIsInterruptedByAPush)
{
    add();
    EXPECT_PLAYS(finger, "0,0:H(SM@0 4,-1:M@0 8,-1:M@0 12,-1:M@0"); // beyond 8 a drag starts, and eases
    EXPECT_PLAYS(finger, "12,-1:M@1.875 12,-1:M@6 12,-1:M@10.125 12,-1:M@12 40,2:M@40");
    EXPECT_PLAYS(finger, "41,-20:M@40 49,-20:M@40 50,-20:M@40 50,-20:M@41.5625"); // pushed; 8 from there
    EXPECT_PLAYS(finger, "50,10:)sM 20,-1:(SM 24,-1:M@20");                       // ends with the press
    clear();
    config.dragThresholds.enabled = false;
    add();
    EXPECT_PLAYS(finger, "0,0:H(SM@0 3,-20:M@3");
}

// A new press is pinned anew.
TEST_F(PokePress, PinningLetsGoWithTheFarthestTravel)
{
    config.dragThresholds.enabled = false;
    config.positionPinning = {true, 16 * kUnit};
    Button& button = add();
    EXPECT_PLAYS(finger, "0,-1:H(SM@0 4,-1:M@1 8,-1:M@4 4,-1:M@2 16,-1:M@16 -8,-1:M@-8");
    EXPECT_PLAYS(finger, "20,10:)sM 20,-1:(SM 24,-1:M@21");
    button.interactable->setPositionPinning({true, 0});
    EXPECT_PLAYS(finger, "25,-1:M@25");
}

TEST_F(PokePress, TwoFingersOnOneButton)
{
    const PokeInteractable& button = *add().interactable;
    Finger other = makeFinger("b");
    EXPECT_PLAYS(other, "0,500:- 20,10:bHbM");
    EXPECT_PLAYS(finger, "0,-1:H(SM");
    EXPECT_PLAYS(other, "20,-10:(bSbM");
    EXPECT_PLAYS(finger, "0,100:)sh");
    EXPECT_EQ(button.getState(), interaction::InteractableState::Select);
    EXPECT_PLAYS(other, "20,10:)bsbM@20");
    EXPECT_EQ(button.getState(), interaction::InteractableState::Hover);
}

} // namespace velk::test
