// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeKind.h"

#include <gmock/gmock.h>

#include <optional>

using namespace velk;
using namespace velk::test;
using interaction::InteractableState;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

struct InteractableSets : testing::Test
{
    Log log;
    FakeInteractor first;
    FakeInteractor second;
    // Last, so that it goes first: an interactor that was added by hand does not know that it must leave.
    std::optional<FakeInteractable> able{std::in_place, &log};

    static auto list(FakeInteractor& tor) { return FakeInteractable::getStaticRegistry().list(tor, {}); }
};

} // namespace

TEST_F(InteractableSets, TheStateFollowsTheSets)
{
    EXPECT_EQ(able->getState(), InteractableState::Normal);
    able->addInteractor(&first);
    able->addInteractor(&second);
    able->addSelectingInteractor(&first);
    EXPECT_EQ(able->getState(), InteractableState::Select);
    able->removeSelectingInteractor(&first);
    EXPECT_EQ(able->getState(), InteractableState::Hover);
    able->removeInteractor(&first);
    EXPECT_EQ(able->getState(), InteractableState::Hover);
    able->addSelectingInteractor(&second);
    able->removeInteractor(&second);
    able->removeSelectingInteractor(&second);
    EXPECT_EQ(able->getState(), InteractableState::Normal);
}

TEST_F(InteractableSets, RemovingWhoIsNotThereIsSilentAndAddingTwiceIsNot)
{
    log.clear();
    able->removeInteractor(&first);
    able->removeSelectingInteractor(&first);
    EXPECT_THAT(log, IsEmpty());
    able->addInteractor(&first);
    log.clear();
    able->addInteractor(&first);
    EXPECT_THAT(log, ElementsAre("able count", "able added"));
    EXPECT_EQ(able->getInteractorsCount(), 1);
}

TEST_F(InteractableSets, AnIdentifierIsRemovedFromWhicheverSetHasIt)
{
    able->addSelectingInteractor(&first);
    able->addInteractor(&second);
    able->removeInteractorById(first.getIdentifier());
    EXPECT_EQ(able->getState(), InteractableState::Hover);
    able->removeInteractorById(first.getIdentifier() + second.getIdentifier() + 1000);
    EXPECT_EQ(able->getInteractorsCount(), 1);
    able->removeInteractorById(second.getIdentifier());
    EXPECT_EQ(able->getInteractorsCount(), 0);
}

TEST_F(InteractableSets, TheWayIntoDisabledIsSilentAndTheWayOutIsNot)
{
    first.wanted = &*able;
    first.setComputeShouldSelectOverride([] { return true; }, false);
    first.update();
    log.clear();
    able->disable();
    EXPECT_THAT(log, ElementsAre("pointer Unselect", "able selecting count", "able Select>Hover",
                                 "pointer Unhover", "able count", "able removed", "able Hover>Normal"));
    EXPECT_EQ(able->getState(), InteractableState::Disabled);
    EXPECT_THAT(list(first), IsEmpty());
    log.clear();
    able->enable();
    EXPECT_THAT(log, ElementsAre("able Disabled>Normal"));
}

TEST_F(InteractableSets, DisabledItTakesNobodyAndSaysNothing)
{
    able->enable(); // is enabled already
    EXPECT_THAT(list(first), ElementsAre(&*able));
    able->disable();
    log.clear();
    able->disable();
    EXPECT_FALSE(able->canBeSelectedBy(first));
    able->addInteractor(&first);
    EXPECT_EQ(able->getState(), InteractableState::Disabled);
    able->removeInteractor(&first);
    EXPECT_THAT(log, ElementsAre("able count", "able added", "able count", "able removed"));
}

TEST_F(InteractableSets, HandlersThatAreUnsubscribedHearNothing)
{
    int heard = 0;
    const auto hear = [&heard](auto&&...) { ++heard; };
    FakeInteractable quiet;
    FakeInteractor tor;
    quiet.unsubscribeToWhenStateChanged(quiet.subscribeToWhenStateChanged(hear));
    quiet.unsubscribeToWhenInteractorsCountUpdated(quiet.subscribeToWhenInteractorsCountUpdated(hear));
    quiet.unsubscribeToWhenSelectingInteractorsCountUpdated(
        quiet.subscribeToWhenSelectingInteractorsCountUpdated(hear));
    quiet.unsubscribeToWhenInteractorAdded(quiet.subscribeToWhenInteractorAdded(hear));
    quiet.unsubscribeToWhenInteractorRemoved(quiet.subscribeToWhenInteractorRemoved(hear));
    quiet.unsubscribeToWhenPointerEventRaised(quiet.subscribeToWhenPointerEventRaised(hear));
    tor.unsubscribeToWhenStateChanged(tor.subscribeToWhenStateChanged(hear));
    tor.unsubscribeToWhenPreprocessed(tor.subscribeToWhenPreprocessed(hear));
    tor.unsubscribeToWhenProcessed(tor.subscribeToWhenProcessed(hear));
    tor.unsubscribeToWhenPostprocessed(tor.subscribeToWhenPostprocessed(hear));
    tor.wanted = &quiet;
    tor.setComputeShouldSelectOverride([] { return true; }, true);
    tor.update();
    tor.disable();
    EXPECT_EQ(heard, 0);
}

TEST_F(InteractableSets, LimitsAdmitByEquality)
{
    EXPECT_EQ(able->getMaxSelectingInteractors(), -1); // none
    EXPECT_EQ(able->getMaxInteractors(), -1);
    able->maxSelectingInteractors_ = 0;
    EXPECT_FALSE(able->canBeSelectedBy(first));
    able->maxSelectingInteractors_ = -1;
    able->maxInteractors_ = 0;
    EXPECT_FALSE(able->canBeSelectedBy(first));
    able->maxInteractors_ = -1;
    able->maxSelectingInteractors_ = 1;
    EXPECT_TRUE(able->canBeSelectedBy(first));
    able->addSelectingInteractor(&second);
    EXPECT_FALSE(able->canBeSelectedBy(first));
    able->addSelectingInteractor(&first); // two of one: no longer equal
    EXPECT_TRUE(able->canBeSelectedBy(first));
    able->maxSelectingInteractors_ = -1;
    able->maxInteractors_ = 1;
    able->addInteractor(&first);
    EXPECT_TRUE(able->canBeSelectedBy(first)); // already there
    EXPECT_FALSE(able->canBeSelectedBy(second));
}

TEST_F(InteractableSets, AreListedInTheOrderOfRegistration)
{
    FakeInteractable next;
    FakeInteractable last;
    EXPECT_THAT(list(first), ElementsAre(&*able, &next, &last));
    able->disable();
    able->enable();
    EXPECT_THAT(list(first), ElementsAre(&next, &last, &*able));
    EXPECT_THAT(FakeInteractable::getStaticRegistry().list(
                    first, [&](FakeInteractable* each) { return each != &last; }),
                ElementsAre(&next, &*able));
}

TEST_F(InteractableSets, AnAbsentFilterPayloadIsEmpty)
{
    EXPECT_EQ(able->getFilterPayload(typeid(int)), nullptr);
    const auto payload = std::make_shared<interaction::filters::IFilterPayload>();
    able->setFilterPayload(typeid(int), payload);
    EXPECT_EQ(able->getFilterPayload(typeid(int)), payload);
    EXPECT_EQ(able->getFilterPayload(typeid(float)), nullptr);
    first.setFilterPayload(typeid(float), payload);
    EXPECT_EQ(first.getFilterPayload(typeid(float)), payload);
    EXPECT_EQ(first.getFilterPayload(typeid(int)), nullptr);
}

namespace
{

/// An element that hears everything and raises what the test says.
struct Element : interaction::IPointableElement
{
    utility::MultiAction<const interaction::PointerEvent&> raised;
    Log heard;
    int subscriptions = 0;

    uint32_t subscribeToWhenPointerEventRaised(
        std::function<void(const interaction::PointerEvent&)>&& handler) override
    {
        ++subscriptions;
        return raised.subscribe(std::move(handler));
    }
    void unsubscribeToWhenPointerEventRaised(uint32_t token) override
    {
        --subscriptions;
        raised.unsubscribe(token);
    }
    void processPointerEvent(const interaction::PointerEvent& event) override
    {
        heard.push_back(nameOf(event.type));
    }
    void raise(int identifier, interaction::PointerEventType type)
    {
        raised.invoke(interaction::PointerEvent(identifier, type, {}));
    }
    void cancel(int identifier) { raise(identifier, interaction::PointerEventType::Cancel); }
};

struct PointerElement : testing::Test
{
    std::shared_ptr<Element> element = std::make_shared<Element>();
    std::optional<FakeInteractable> able{std::in_place, nullptr, element};
    std::optional<FakeInteractor> tor{std::in_place};

    PointerElement()
    {
        tor->wanted = &*able;
        tor->setComputeShouldSelectOverride([] { return true; }, true);
        tor->update();
    }
};

} // namespace

TEST_F(PointerElement, HearsTheInteractable)
{
    EXPECT_THAT(element->heard, ElementsAre("Hover", "Select", "Move"));
    EXPECT_EQ(element->subscriptions, 1);
    tor.reset();
    EXPECT_THAT(element->heard, ElementsAre("Hover", "Select", "Move", "Unselect", "Unhover"));
    EXPECT_EQ(element->subscriptions, 0);
}

TEST_F(PointerElement, CancelsTheInteractorItNames)
{
    element->heard.clear();
    element->cancel(tor->getIdentifier() + 1);
    element->raise(tor->getIdentifier(), interaction::PointerEventType::Unselect);
    EXPECT_THAT(element->heard, IsEmpty());
    element->cancel(tor->getIdentifier());
    EXPECT_THAT(element->heard, ElementsAre("Unselect", "Unhover"));
    EXPECT_EQ(able->getState(), InteractableState::Normal);
    EXPECT_EQ(tor->getState(), interaction::InteractorState::Select); // settled by the next update
}

TEST_F(PointerElement, IsLeftByAnInteractorThatOutlivesItsInteractable)
{
    able.reset(); // drops its element first, so no Unhover reaches it
    EXPECT_THAT(element->heard, ElementsAre("Hover", "Select", "Move"));
    const int identifier = tor->getIdentifier();
    tor.reset();
    element->cancel(identifier); // must not reach the dead interactor
}
