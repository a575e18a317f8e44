// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/pointer/PointerInteractable.h"
#include "velk_core/interaction/pointer/PointerInteractor.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velk::test
{

/// What happened, in the order in which it happened.
using Log = std::vector<std::string>;

inline std::string nameOf(interaction::InteractorState state)
{
    static const char* const names[] = {"Normal", "Hover", "Select", "Disabled"};
    return names[static_cast<int>(state)];
}
inline std::string nameOf(interaction::InteractableState state)
{
    return nameOf(static_cast<interaction::InteractorState>(state));
}
inline std::string nameOf(interaction::PointerEventType type)
{
    static const char* const names[] = {"Hover", "Unhover", "Select", "Unselect", "Move", "Cancel"};
    return names[static_cast<int>(type)];
}

class FakeInteractor;

/// An interactable that writes all its events to a log.
class FakeInteractable : public interaction::PointerInteractable<FakeInteractor, FakeInteractable>
{
public:
    explicit FakeInteractable(Log* log = nullptr,
                              std::shared_ptr<interaction::IPointableElement> element = nullptr)
        : PointerInteractable(std::move(element))
    {
        if (log != nullptr) {
            record(*log);
        }
        onEnable();
    }
    ~FakeInteractable() override
    {
        onDisable();
        getStaticRegistry().interactableDestroyed(this);
    }

    static Registry& getStaticRegistry()
    {
        static Registry registry;
        return registry;
    }
    Registry& getRegistry() override { return getStaticRegistry(); }
    FakeInteractable* getInteractablePtr() override { return this; }

    using PointerInteractable::interactorFilters_;
    using PointerInteractable::maxInteractors_;
    using PointerInteractable::maxSelectingInteractors_;

private:
    void record(Log& log)
    {
        subscribeToWhenInteractorsCountUpdated([&log] { log.push_back("able count"); });
        subscribeToWhenSelectingInteractorsCountUpdated([&log] { log.push_back("able selecting count"); });
        subscribeToWhenInteractorAdded([&log](FakeInteractor*) { log.push_back("able added"); });
        subscribeToWhenInteractorRemoved([&log](FakeInteractor*) { log.push_back("able removed"); });
        subscribeToWhenStateChanged([&log](interaction::InteractableStateChangeArgs args) {
            log.push_back("able " + nameOf(args.previousState) + ">" + nameOf(args.newState));
        });
        subscribeToWhenPointerEventRaised([&log](const interaction::PointerEvent& event) {
            log.push_back("pointer " + nameOf(event.type));
        });
    }
};

/// An interactor whose candidate is what the test says, and which writes all its hooks and events to a log.
class FakeInteractor : public interaction::PointerInteractor<FakeInteractor, FakeInteractable>
{
public:
    explicit FakeInteractor(Log* log = nullptr,
                            std::shared_ptr<active_state::IActiveState> activeState = nullptr,
                            std::shared_ptr<select::ISelector> selector = nullptr)
        : PointerInteractor(std::move(activeState), nullptr)
        , log_(log)
    {
        subscribeToWhenStateChanged([this](interaction::InteractorStateChangeArgs args) {
            note("tor " + nameOf(args.previousState) + ">" + nameOf(args.newState));
        });
        subscribeToWhenPreprocessed([this] { note("preprocessed"); });
        subscribeToWhenProcessed([this] { note("processed"); });
        subscribeToWhenPostprocessed([this] { note("postprocessed"); });
        setSelector(std::move(selector));
        onEnable();
    }
    ~FakeInteractor() override { onDisable(); }

    FakeInteractable* wanted = nullptr;
    int queued = 0; ///< commands taken from the selector so far

    using PointerInteractor::generatePointerEvent;
    using PointerInteractor::interactable;
    using PointerInteractor::interactableFilters_;
    using PointerInteractor::selectedInteractable;

protected:
    void doPreprocess() override { note("doPreprocess"); }
    void doNormalUpdate() override { note("doNormalUpdate"); }
    void doHoverUpdate() override { note("doHoverUpdate"); }
    void doSelectUpdate() override { note("doSelectUpdate"); }
    void doPostprocess() override
    {
        note("doPostprocess");
        PointerInteractor::doPostprocess();
    }
    void interactableSet(FakeInteractable* target) override
    {
        noteHook("set", target);
        PointerInteractor::interactableSet(target);
    }
    void interactableUnset(FakeInteractable* target) override
    {
        noteHook("unset", target);
        PointerInteractor::interactableUnset(target);
    }
    void interactableSelected(FakeInteractable* target) override
    {
        noteHook("selected", target);
        PointerInteractor::interactableSelected(target);
    }
    void interactableUnselected(FakeInteractable* target) override
    {
        noteHook("unselected", target);
        PointerInteractor::interactableUnselected(target);
    }
    void handleEnabled() override { note("handleEnabled"); }
    void handleDisabled() override { note("handleDisabled"); }
    void handleSelected() override
    {
        ++queued;
        PointerInteractor::handleSelected();
    }
    FakeInteractable* computeCandidate() override
    {
        note("computeCandidate");
        return wanted;
    }
    FakeInteractor* getInteractorPtr() override { return this; }
    Posef computePointerPose() override { return {}; }

private:
    void note(const std::string& what)
    {
        if (log_ != nullptr) {
            log_->push_back(what);
        }
    }
    /// With the state that the hook finds.
    void noteHook(const std::string& hook, const FakeInteractable*)
    {
        note(hook + " in " + nameOf(getState()));
    }

    Log* log_;
};

} // namespace velk::test
