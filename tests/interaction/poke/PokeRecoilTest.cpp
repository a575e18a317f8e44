// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeRecoil.h"

#include "tests/support/PokeScene.h"

namespace velk::test
{

struct PokeRecoilTest : PokeScene
{
    PokeRecoilTest()
    {
        config.recoilAssist = {true, 16.0f, 8.0f}; // exit and re-enter
        button = add().interactable.get();
    }

    bool retreatsAt(float depth) { return recoil.shouldRecoil(depth, config.recoilAssist); }

    PokeInteractable* button;
    interaction::PokeRecoil recoil;
};

TEST_F(PokeRecoilTest, CountsFromTheDeepestPointOfThePress)
{
    recoil.pressBegan();
    EXPECT_FALSE(retreatsAt(40.0f));
    EXPECT_FALSE(retreatsAt(24.0f)); // as far as the limit
    EXPECT_FALSE(retreatsAt(50.0f));
    EXPECT_TRUE(retreatsAt(33.0f));
    recoil.pressBegan();
    EXPECT_FALSE(retreatsAt(10.0f)); // a new press, a new deepest point
    config.recoilAssist.enabled = false;
    EXPECT_FALSE(retreatsAt(-100.0f));
}

TEST_F(PokeRecoilTest, PressesAgainBelowTheShallowestPointSince)
{
    recoil.begin(*button, 30.0f);
    EXPECT_EQ(recoil.getInteractable(), button);
    EXPECT_FALSE(recoil.pressesAgain(38.0f));
    EXPECT_TRUE(recoil.pressesAgain(39.0f));
    EXPECT_FALSE(recoil.pressesAgain(20.0f)); // shallower: 28 from now on
    EXPECT_FALSE(recoil.pressesAgain(28.0f));
    EXPECT_TRUE(recoil.pressesAgain(29.0f));
    recoil.end();
    EXPECT_EQ(recoil.getInteractable(), nullptr);
    // The limit is kept through the press that follows; the next recoil sets it before it is read.
    recoil.pressBegan();
    recoil.begin(*button, 100.0f);
    EXPECT_FALSE(recoil.pressesAgain(108.0f));
    EXPECT_TRUE(recoil.pressesAgain(109.0f));
}

} // namespace velk::test
