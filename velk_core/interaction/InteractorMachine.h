// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IActiveState.h"
#include "velk_core/interaction/IInteractor.h"
#include "velk_core/select/SelectorQueue.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/OneShot.h"
#include "velk_core/witness/Witness.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace velk::interaction
{

/// The state machine at the heart of the library: decides once per update whether the thing that it stands
/// for does nothing, hovers or selects. It knows candidates and interactables as addresses alone; what links
/// an interactor with them is Interactor's, and what differs between kinds is in the virtual hooks.
///
/// Invariants: in Hover and Select either interactable may be null; in Normal and Disabled both are. Host
/// thread only; an event handler must not update the interactor that raised the event.
class InteractorMachine : public IInteractor
{
public:
    using WhenStateChanged = utility::MultiAction<InteractorStateChangeArgs>;

    /// An empty `activeState` counts as active.
    explicit InteractorMachine(std::shared_ptr<active_state::IActiveState>&& activeState)
        : activeState_(std::move(activeState))
    {
    }
    InteractorMachine(const InteractorMachine&) = delete;
    InteractorMachine& operator=(const InteractorMachine&) = delete;

    bool hasCandidate() const override { return candidate_ != nullptr; }
    bool hasInteractable() const override { return interactable_ != nullptr; }
    bool hasSelectedInteractable() const override { return selectedInteractable_ != nullptr; }
    IInteractable* getInteractablePtr() const override { return interactable_; }
    IInteractable* getSelectedInteractablePtr() const override { return selectedInteractable_; }
    InteractorState getState() const override { return state_; }
    bool getIsRootDriver() override { return isRootDriver_; }
    void setIsRootDriver(bool isRootDriver) override { isRootDriver_ = isRootDriver; }

    void update() override;
    void drive() override;
    void preprocess() override;
    void process() override;
    void postprocess() override;
    void processCandidate() override;
    void enable() override;
    void disable() override;
    void hover() override;
    void unhover() override;
    void select() override;
    void unselect() override;
    bool shouldHover() override;
    bool shouldUnhover() const override;
    bool shouldSelect() override;
    bool shouldUnselect() const override;

    uint32_t subscribeToWhenStateChanged(std::function<void(InteractorStateChangeArgs)>&& handler) override
    {
        return whenStateChanged_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenStateChanged(uint32_t token) override { whenStateChanged_.unsubscribe(token); }
    uint32_t subscribeToWhenPreprocessed(std::function<void()>&& handler) override
    {
        return whenPreprocessed_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenPreprocessed(uint32_t token) override { whenPreprocessed_.unsubscribe(token); }
    uint32_t subscribeToWhenProcessed(std::function<void()>&& handler) override
    {
        return whenProcessed_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenProcessed(uint32_t token) override { whenProcessed_.unsubscribe(token); }
    uint32_t subscribeToWhenPostprocessed(std::function<void()>&& handler) override
    {
        return whenPostprocessed_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenPostprocessed(uint32_t token) override { whenPostprocessed_.unsubscribe(token); }

    /// Moves a subscription to another interactor's here, also while memory is short.
    uint32_t takeOverWhenPostprocessed(InteractorMachine& former, uint32_t token)
    {
        return whenPostprocessed_.takeOver(former.whenPostprocessed_, token);
    }

    WhenStateChanged::HandlerToken
    registerWhenStateChangedHandler(std::function<void(InteractorStateChangeArgs)>&& handler)
    {
        return whenStateChanged_.registerHandler(std::move(handler));
    }

    /// An override with `clearOnSelect` (or `clearOnUnselect`) is one-shot: it goes at the next select (or
    /// unselect). That of the candidate is set by Interactor, which knows its type.
    virtual void clearComputeCandidateOverride() { candidateOverride_.clear(); }
    virtual void setComputeShouldSelectOverride(std::function<bool()>&& compute, bool clearOnSelect)
    {
        shouldSelectOverride_.set(std::move(compute), clearOnSelect);
    }
    virtual void clearComputeShouldSelectOverride() { shouldSelectOverride_.clear(); }
    virtual void setComputeShouldUnselectOverride(std::function<bool()>&& compute, bool clearOnUnselect)
    {
        shouldUnselectOverride_.set(std::move(compute), clearOnUnselect);
    }
    virtual void clearComputeShouldUnselectOverride() { shouldUnselectOverride_.clear(); }

protected:
    virtual void doPreprocess() {}
    virtual void doNormalUpdate() {}
    virtual void doHoverUpdate() {}
    virtual void doSelectUpdate() {}
    virtual void doPostprocess() {}
    /// A kind answers its own type of interactable.
    virtual IInteractable* computeCandidate() = 0;
    virtual bool computeShouldSelect() { return queuedSelect(); }
    virtual bool computeShouldUnselect() const { return queuedUnselect(); }
    virtual void handleEnabled() {}
    virtual void handleDisabled() {}
    virtual void handleSelected() { selectorQueue_.push(true); }
    virtual void handleUnselected() { selectorQueue_.push(false); }

    /// The links: each sets or clears the address, moves the interactable's sets and raises the events.
    virtual void setInteractable(IInteractable* target) = 0;
    virtual void unsetInteractable() = 0;
    virtual void selectInteractable(IInteractable* target) = 0;
    virtual void unselectInteractable() = 0;

    bool queuedSelect() const
    {
        return witness::judge(witness::Rule::SelectorPress, selectorQueue_.isNext(true));
    }
    bool queuedUnselect() const
    {
        return witness::judge(witness::Rule::SelectorRelease, selectorQueue_.isNext(false));
    }

    select::SelectorQueue selectorQueue_{[this] { handleSelected(); }, [this] { handleUnselected(); }};
    utility::OneShot<IInteractable*> candidateOverride_;
    IInteractable* candidate_ = nullptr;
    IInteractable* interactable_ = nullptr;
    IInteractable* selectedInteractable_ = nullptr;

private:
    /// One drive() makes at most this many passes, whatever the hooks answer.
    static constexpr int kMaxPasses = 3;

    bool makeTransition(int pass);
    bool updateActiveState();
    bool askActiveState();
    void setState(InteractorState newState);

    std::shared_ptr<active_state::IActiveState> activeState_;
    utility::OneShot<bool> shouldSelectOverride_;
    utility::OneShot<bool> shouldUnselectOverride_;
    InteractorState state_ = InteractorState::Normal;
    bool isRootDriver_ = true;
    WhenStateChanged whenStateChanged_;
    utility::MultiAction<> whenPreprocessed_;
    utility::MultiAction<> whenProcessed_;
    utility::MultiAction<> whenPostprocessed_;
};

} // namespace velk::interaction
