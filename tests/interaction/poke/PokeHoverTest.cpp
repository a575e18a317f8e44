// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/PokeScene.h"
#include "velk_core/interaction/poke/PokeGeometry.h"

namespace velk::test
{

using PokeHover = PokeScene;

TEST_F(PokeHover, EntersAtTheEnterLimitAndLeavesAboveTheExitLimit)
{
    add();
    EXPECT_PLAYS(finger, "0,33:- 0,32:HM 0,64:M 0,31:M 0,65:h 0,33:- 0,31:HM");
}

// The broad test reaches only to the enter limit and the frame's own movement, here one unit farther.
TEST_F(PokeHover, IsLostByAFingerThatRestsAboveTheEnterLimit)
{
    add();
    EXPECT_PLAYS(finger, "0,32:HM 0,33:M 0,33:M 0,34:M 0,34:h");
    buttons.at("").interactable->setCloseDistanceThreshold(4 * kUnit); // and that much farther
    EXPECT_PLAYS(finger, "0,32:HM 0,37:M 0,37:M 0,38:M 0,38:h");
}

// A tangent limit of 0 admits the skin, not only the centre: one radius beyond the edge.
TEST_F(PokeHover, TangentLimitsHaveAHysteresisOfTheirOwn)
{
    add();
    EXPECT_PLAYS(finger, "55,10:- 54,10:HM 55,10:h");
    clear();
    config.enterHoverTangent = 40 * kUnit;
    config.exitHoverTangent = 50 * kUnit;
    add();
    EXPECT_PLAYS(finger, "95,1:- 94,1:HM 90,1:M 104,1:M 90,1:M 105,1:h");
    EXPECT_PLAYS(finger, "90,1:HM 90,1:M 104,1:M 103,1:h"); // the broad test reaches to the greater limit
    clear();
    config.enterHoverTangent = 2000 * kUnit; // metres away, no other limit holds
    add();
    EXPECT_PLAYS(finger, "2055,10:- 2054,10:HM 2055,10:h");
}

// Not from under the surface, with the skin at it, or from the side under the rim.
TEST_F(PokeHover, BeginsOnlyFromAbove)
{
    add();
    EXPECT_PLAYS(finger, "200,-60:- 0,-60:- 0,-4:- 0,-3:- 0,0:- 0,1:HM 200,1:h 200,-2:- 40,-2:-");
}

// The limit is 8, or the depth of the shallowest finger already there. The point of the last frame will do.
TEST_F(PokeHover, AMinimumHeightIsStrictAndSinksWithAnotherFinger)
{
    config.minThresholds.enabled = true;
    add();
    EXPECT_PLAYS(finger, "200,8:- 0,8:- 0,9:HM 200,9:h 0,4:HM 0,400:h");
    Finger deep = makeFinger("b");
    EXPECT_PLAYS(deep, "0,500:- 0,20:bHbM 0,-4:(bSbM");
    EXPECT_PLAYS(finger, "200,4:- 10,4:- 10,5:HM");
}

struct RankingRow
{
    const char* what;
    float heights[2], xs[2]; // of two surfaces in the order of making; the edge of one at 52 is 2 away from 0
    int scores[2];
    float closeDistance;
    const char* winner;
};

// Hovered from 20, then pressed from far.
TEST_F(PokeHover, RankingIsThatOfAPress)
{
    const RankingRow rows[] = {
        {"nearer wins", {4, 0}, {0, 0}, {0, 0}, 0, "1"},
        {"nearer wins when visited later", {0, 4}, {0, 0}, {0, 0}, 0, "2"},
        {"a full tie keeps the first", {0, 0}, {0, 0}, {0, 0}, 0, "1"},
        {"equally far: the smaller tangent distance", {0, 0}, {52, 0}, {0, 0}, 0, "2"},
        {"a higher score wins among equals", {0, 0}, {0, 0}, {0, 1}, 0, "2"},
        {"also when a little farther", {0.5f, 0}, {0, 0}, {0, 1}, 0, "2"},
        {"not from epsilon on", {1, 0}, {0, 0}, {0, 1}, 0, "1"},
        {"visited first, it loses to a little nearer", {0, 0.5f}, {0, 0}, {1, 0}, 0, "2"},
        {"close: the smaller tangent distance", {4, 0}, {52, 0}, {0, 0}, 4, "2"},
        {"close: no farther than the close distance", {5, 0}, {52, 0}, {0, 0}, 4, "1"},
        {"close: equal tangents keep the first", {0, 4}, {0, 0}, {0, 0}, 4, "1"},
    };
    for (const RankingRow& row : rows) {
        for (const int i : {0, 1}) {
            PokeInteractable& made = addAt(std::to_string(i + 1), row.xs[i], row.heights[i]);
            made.setTiebreakerScore(row.scores[i]);
            made.setCloseDistanceThreshold(row.closeDistance * kUnit);
        }
        const std::string name = row.winner;
        EXPECT_EQ(finger.at(0, 20), name + "H" + name + "M") << row.what;
        park();
        EXPECT_EQ(finger.at(0, -10), name + "H(" + name + "S" + name + "M") << row.what;
        clear();
    }
}

// Two clippers narrow the patch to what they have in common; without that it is no candidate for anything.
TEST_F(PokeHover, OverClippedPatches)
{
    const Button& button = add();
    button.interactable->setSurfacePatch(button.clippedTo(units(-40, 0, 0), units(40, 0, 0)));
    EXPECT_PLAYS(finger, "15,20:- 14,20:HM 15,20:h -14,20:HM -15,20:h");
    button.interactable->setSurfacePatch(button.clippedTo(units(-51, 0, 0), units(51, 0, 0)));
    EXPECT_PLAYS(finger, "0,20:- 0,-20:-");
    clear();
    const Button& gone = add(); // from the start
    gone.interactable->setSurfacePatch(gone.clippedTo(units(-51, 0, 0), units(51, 0, 0)));
    EXPECT_PLAYS(finger, "0,20:- 0,-20:- 0,20:-");
}

TEST_F(PokeHover, TheTouchPointIsUnderTheFinger)
{
    addAt("", 0, 4);
    EXPECT_PLAYS(finger, "7,20:HM@7 -53,20:M@-53");
    EXPECT_EQ(finger->getClosestPoint().x, -50 * kUnit); // of the patch
    EXPECT_EQ(finger->getTouchPoint().z, 4 * kUnit);
    const Vector3f lower = units(53, 0, 0); // 3 beside the edge, 4 under the patch, in from the skin by 4
    EXPECT_EQ(interaction::poke_geometry::computeDistanceFrom(*buttons.at("").interactable, lower, 4 * kUnit),
              kUnit);
    EXPECT_EQ(finger->getTouchNormal().z, 1);
}

} // namespace velk::test
