// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeKind.h"
#include "velk_core/select/Selector.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

using namespace velk;
using namespace velk::test;
using interaction::InteractorState;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct Switch : active_state::IActiveState
{
    bool active = true;
    bool isActive() const override { return active; }
};

struct Drive : testing::Test
{
    Log log;
    FakeInteractable able{&log};
    std::shared_ptr<Switch> active = std::make_shared<Switch>();
    std::shared_ptr<select::Selector> selector = std::make_shared<select::Selector>();
    FakeInteractor tor{&log, active};

    Drive()
    {
        tor.setSelector(std::shared_ptr<select::ISelector>(selector));
        log.clear();
    }

    Log update()
    {
        log.clear();
        tor.update();
        return log;
    }
};

} // namespace

TEST_F(Drive, EveryEventOfOneUpdateFromNormalToSelect)
{
    tor.wanted = &able;
    selector->select();
    EXPECT_THAT(log, IsEmpty()); // a press only queues
    EXPECT_THAT(update(),
                ElementsAre("doPreprocess", "preprocessed",
                            // pass 1
                            "computeCandidate", "doNormalUpdate", "processed", "able count", "able added",
                            "able Normal>Hover", "set in Normal", "pointer Hover", "tor Normal>Hover",
                            // pass 2: the candidate stays valid
                            "doHoverUpdate", "processed", "able selecting count", "able Hover>Select",
                            "selected in Hover", "pointer Select", "tor Hover>Select",
                            // pass 3
                            "doSelectUpdate", "processed",
                            // the end
                            "doPostprocess", "pointer Move", "postprocessed"));
}

TEST_F(Drive, EveryEventOfOneUpdateFromSelectToNormal)
{
    tor.wanted = &able;
    selector->select();
    update();
    tor.wanted = nullptr;
    selector->unselect();
    EXPECT_THAT(
        update(),
        ElementsAre("doPreprocess", "preprocessed", "doSelectUpdate", "processed", "able selecting count",
                    "able Select>Hover", "unselected in Select", "pointer Unselect", "tor Select>Hover",
                    // a hover reached from Select looks again
                    "computeCandidate", "doHoverUpdate", "processed", "able count", "able removed",
                    "able Hover>Normal", "unset in Hover", "pointer Unhover", "tor Hover>Normal",
                    // third pass, at rest
                    "computeCandidate", "doNormalUpdate", "processed", "doPostprocess", "postprocessed"));
}

TEST_F(Drive, APressInEmptyAirSelectsNothingUntilReleased)
{
    selector->select();
    EXPECT_THAT(update(), Not(testing::Contains(testing::StartsWith("pointer"))));
    EXPECT_EQ(tor.getState(), InteractorState::Select);
    EXPECT_FALSE(tor.hasSelectedInteractable());
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Select); // the queue is empty, nothing releases
    selector->unselect();
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Normal);
}

TEST_F(Drive, PressAndReleaseBetweenTwoUpdatesAreBothSeen)
{
    tor.wanted = &able;
    update();
    selector->select();
    selector->select(); // used up as one
    selector->unselect();
    EXPECT_THAT(update(), testing::IsSupersetOf({"tor Hover>Select", "tor Select>Hover"}));
    EXPECT_EQ(tor.getState(), InteractorState::Hover);
}

TEST_F(Drive, APressIsUsedInTheThirdPassOnceTheHoverHasChanged)
{
    FakeInteractable other;
    tor.wanted = &able;
    update();
    tor.wanted = &other;
    selector->select();
    update(); // unhover, hover, select: three transitions
    EXPECT_EQ(tor.getState(), InteractorState::Select);
    EXPECT_EQ(tor.selectedInteractable(), &other);
}

TEST_F(Drive, AFourthTransitionWaitsAndItsCommandIsDropped)
{
    FakeInteractable other;
    tor.wanted = &able;
    update();
    tor.wanted = &other;
    selector->select();
    selector->unselect();
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Select); // the release stood behind the third transition
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Select); // and was thrown away at the update's end
}

TEST_F(Drive, ACommandThatCannotBeUsedIsLost)
{
    tor.wanted = &able;
    update();
    selector->unselect(); // at the front in Hover: blocks what follows
    selector->select();
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Hover);
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Hover);
}

TEST_F(Drive, DisabledIsEnteredAndLeftSilently)
{
    tor.wanted = &able;
    selector->select();
    update();
    active->active = false;
    EXPECT_THAT(update(), ElementsAre("doPreprocess", "handleDisabled", "able selecting count",
                                      "able Select>Hover", "unselected in Select", "pointer Unselect",
                                      "able count", "able removed", "able Hover>Normal", "unset in Hover",
                                      "pointer Unhover", "preprocessed", "doPostprocess", "postprocessed"));
    EXPECT_EQ(tor.getState(), InteractorState::Disabled);
    active->active = true;
    tor.wanted = nullptr;
    EXPECT_THAT(update(), ElementsAre("doPreprocess", "preprocessed", "handleEnabled", "computeCandidate",
                                      "doNormalUpdate", "processed", "doPostprocess", "postprocessed"));
}

TEST_F(Drive, AnInteractorDisabledByAHandlerRestsForTheRemainderOfTheUpdate)
{
    tor.wanted = &able;
    const uint32_t token = tor.subscribeToWhenProcessed([this] { tor.disable(); });
    EXPECT_THAT(update(), ElementsAre("doPreprocess", "preprocessed", "computeCandidate", "doNormalUpdate",
                                      "processed", "handleDisabled", "doPostprocess", "postprocessed"));
    tor.unsubscribeToWhenProcessed(token);
    tor.subscribeToWhenStateChanged([this](auto) { tor.disable(); });
    update(); // out of the hover that it has just entered
    EXPECT_EQ(tor.getState(), InteractorState::Disabled);
    EXPECT_FALSE(tor.hasInteractable());
    EXPECT_EQ(log.back(), "postprocessed");
}

// It is asked before each step that it could stop, and stops all that come after.
TEST_F(Drive, AnActiveStateCanEndInMidUpdate)
{
    struct Countdown : active_state::IActiveState
    {
        mutable int left = 0;
        bool isActive() const override { return left-- > 0; }
    };
    const auto countdown = std::make_shared<Countdown>();
    FakeInteractor limited(&log, countdown);
    limited.wanted = &able;
    for (const int answers : {0, 1, 2, 3}) {
        countdown->left = answers;
        log.clear();
        limited.update();
        EXPECT_EQ(limited.getState(), InteractorState::Disabled) << answers;
        EXPECT_THAT(log, testing::Not(testing::Contains("computeCandidate")));
    }
    countdown->left = 4;
    limited.update();
    EXPECT_TRUE(limited.hasInteractable());
}

TEST_F(Drive, StepsOfTheMachineDoNothingOutsideTheirState)
{
    tor.setComputeShouldSelectOverride([] { return true; }, true);
    tor.setComputeShouldUnselectOverride([] { return true; }, false);
    EXPECT_FALSE(tor.shouldUnhover() || tor.shouldSelect() || tor.shouldUnselect());
    tor.unhover();
    tor.select();
    tor.unselect();
    EXPECT_THAT(log, IsEmpty());
    tor.clearComputeShouldSelectOverride();
    tor.wanted = &able;
    update();
    log.clear();
    EXPECT_FALSE(tor.shouldHover() || tor.shouldUnselect());
    tor.hover();
    tor.unselect();
    EXPECT_THAT(log, IsEmpty());
    tor.setComputeShouldSelectOverride([] { return true; }, false);
    tor.clearComputeShouldUnselectOverride();
    update();
    tor.wanted = nullptr;
    tor.processCandidate();
    log.clear();
    EXPECT_FALSE(tor.shouldHover() || tor.shouldUnhover() || tor.shouldSelect());
    tor.hover();
    tor.unhover();
    tor.select();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(tor.getState(), InteractorState::Select);
}

// The table at the top of InteractorMachine.cpp, row by row. Each way there starts from Normal and a press
// still pending.
TEST_F(Drive, EachRowOfTheTableOfTransitions)
{
    struct Row
    {
        InteractorState from;
        InteractorState to;
        void (FakeInteractor::*by)();
        std::function<void()> when;
        std::function<bool()> decided;
        bool isHeard;
    };
    using enum InteractorState;
    const auto nothing = [] {};
    const auto always = [] { return true; };
    const auto lookFor = [this](FakeInteractable* wanted) {
        return [this, wanted] {
            tor.wanted = wanted;
            tor.processCandidate();
        };
    };
    const auto shouldHover = [this] { return tor.shouldHover(); };
    const auto shouldSelect = [this] { return tor.shouldSelect(); };
    const Row rows[] = {
        {Normal, Hover, &FakeInteractor::hover, lookFor(&able), shouldHover, true},
        {Normal, Hover, &FakeInteractor::hover, lookFor(nullptr), shouldHover, true},
        {Hover, Select, &FakeInteractor::select, nothing, shouldSelect, true},
        {Hover, Normal, &FakeInteractor::unhover, lookFor(nullptr), [this] { return tor.shouldUnhover(); },
         true},
        {Select, Hover, &FakeInteractor::unselect, [this] { selector->unselect(); },
         [this] { return tor.shouldUnselect(); }, true},
        {Disabled, Normal, &FakeInteractor::enable, nothing, always, false},
        {Normal, Disabled, &FakeInteractor::disable, nothing, always, false},
        {Hover, Disabled, &FakeInteractor::disable, nothing, always, false},
        {Select, Disabled, &FakeInteractor::disable, nothing, always, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(nameOf(row.from) + " to " + nameOf(row.to));
        tor.disable();
        tor.wanted = nullptr;
        tor.postprocess();
        if (row.from != Disabled) {
            tor.enable();
            selector->select();
        }
        if (row.from == Hover || row.from == Select) {
            lookFor (&able)();
            tor.hover();
        }
        if (row.from == Select) {
            tor.select();
        }
        ASSERT_EQ(tor.getState(), row.from);
        row.when();
        EXPECT_TRUE(row.decided());
        log.clear();
        (tor.*row.by)();
        EXPECT_EQ(tor.getState(), row.to);
        const std::string change = "tor " + nameOf(row.from) + ">" + nameOf(row.to);
        EXPECT_EQ(std::count_if(log.begin(), log.end(), [](auto& line) { return line.starts_with("tor "); }),
                  row.isHeard ? 1 : 0);
        EXPECT_EQ(std::count(log.begin(), log.end(), change), row.isHeard ? 1 : 0);
    }
}

TEST_F(Drive, WhatIsNoRootDriverDoesNotMove)
{
    tor.setIsRootDriver(false);
    EXPECT_THAT(update(), IsEmpty());
}

TEST_F(Drive, OneShotOverridesLastUntilTheirTransition)
{
    tor.setComputeCandidateOverride([this] { return &able; }, true);
    tor.setComputeShouldSelectOverride([] { return true; }, true);
    update();
    EXPECT_EQ(tor.selectedInteractable(), &able);
    tor.setComputeShouldUnselectOverride([] { return true; }, true);
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Normal); // the candidate override is gone
    tor.setComputeShouldSelectOverride([] { return false; }, false);
    tor.wanted = &able;
    for (int i = 0; i < 2; ++i) { // one that stays
        selector->select();
        update();
        EXPECT_EQ(tor.getState(), InteractorState::Hover);
    }
}

TEST_F(Drive, ASelectorIsSwappedWithItsSubscription)
{
    const auto second = std::make_shared<select::Selector>();
    tor.setSelector(std::shared_ptr<select::ISelector>(selector)); // the same: nothing
    tor.setSelector(std::shared_ptr<select::ISelector>(second));
    selector->select();
    EXPECT_EQ(tor.queued, 0);
    second->select();
    EXPECT_EQ(tor.queued, 1);
    tor.setSelector(nullptr);
    second->select();
    EXPECT_EQ(tor.queued, 1);
}

TEST_F(Drive, ASelectorGivenAtConstructionPressesTwiceAndIsLeftAtDestruction)
{
    auto built = std::make_unique<FakeInteractor>(nullptr, nullptr, selector);
    selector->select();
    EXPECT_EQ(built->queued, 2);
    built->setSelector(nullptr);
    selector->select();
    EXPECT_EQ(built->queued, 3); // the second subscription was never stored
    built.reset();
    selector->select(); // must not reach the dead interactor
    EXPECT_EQ(tor.queued, 3);
}

TEST_F(Drive, AnInteractableTakenAwayWhileSelectedLeavesTheStateForALaterUpdate)
{
    auto gone = std::make_unique<FakeInteractable>();
    tor.wanted = gone.get();
    selector->select();
    update();
    tor.wanted = nullptr;
    log.clear();
    gone.reset();
    EXPECT_THAT(log, ElementsAre("unselected in Select", "unset in Select"));
    EXPECT_EQ(tor.getState(), InteractorState::Select);
    EXPECT_FALSE(tor.hasInteractable() || tor.hasSelectedInteractable() || tor.hasCandidate());
    selector->unselect();
    update();
    EXPECT_EQ(tor.getState(), InteractorState::Normal);
}

TEST_F(Drive, FiltersOfBothSidesAreAsked)
{
    struct Refuse : interaction::filters::IObjectFilter
    {
        const void* asked = nullptr;
        bool filter(interaction::filters::IFilterableObject* object) override
        {
            asked = object;
            return false;
        }
    };
    const auto list = [this] { return FakeInteractable::getStaticRegistry().list(tor, {}); };
    EXPECT_THAT(list(), ElementsAre(&able));
    const auto refuse = std::make_shared<Refuse>();
    able.interactorFilters_.insert(refuse);
    EXPECT_THAT(list(), IsEmpty());
    EXPECT_EQ(refuse->asked, static_cast<interaction::filters::IFilterableObject*>(&tor));
    able.interactorFilters_.erase(refuse);
    tor.interactableFilters_.insert(refuse);
    EXPECT_THAT(list(), IsEmpty());
    EXPECT_EQ(refuse->asked, static_cast<interaction::filters::IFilterableObject*>(&able));
}
