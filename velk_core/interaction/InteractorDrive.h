// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/Interactor.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace velk::interaction
{

// The state machine of an interactor. Transitions, and what decides each:
//
//   from      to        by          when
//   Normal    Hover     hover()     shouldHover(): a candidate, or a pending select in empty air
//   Hover     Select    select()    shouldSelect(); goes before shouldUnhover()
//   Hover     Normal    unhover()   shouldUnhover(): the candidate changed, or there is none
//   Select    Hover     unselect()  shouldUnselect()
//   Disabled  Normal    enable()    silent: no whenStateChanged
//   any       Disabled  disable()   silent: no whenStateChanged, only the interactable's events

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::update()
{
    if (getIsRootDriver()) {
        drive();
    }
}

// The order of these steps is the library's behaviour: none may be moved.
template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::drive()
{
    preprocess();
    if (!updateActiveState()) {
        disable();
        postprocess();
        return;
    }
    enable();
    InteractorState previousState = state_;
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        // A hover just entered from Normal keeps the candidate that it was entered with.
        if (state_ == InteractorState::Normal ||
            (state_ == InteractorState::Hover && previousState != InteractorState::Normal)) {
            processCandidate();
        }
        previousState = state_;
        process();
        if (!makeTransition()) {
            break;
        }
    }
    postprocess();
}

// One transition at most; false when the machine has come to rest.
template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::makeTransition()
{
    switch (state_) {
    case InteractorState::Normal:
        if (shouldHover()) {
            hover();
            return true;
        }
        return false;
    case InteractorState::Hover:
        if (shouldSelect()) {
            select();
            return true;
        }
        if (shouldUnhover()) {
            unhover();
            return true;
        }
        return false;
    case InteractorState::Select:
        if (shouldUnselect()) {
            unselect();
            return true;
        }
        return false;
    case InteractorState::Disabled:
        return false;
    }
    return false;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::preprocess()
{
    doPreprocess();
    if (!updateActiveState()) {
        disable();
    }
    whenPreprocessed_.invoke();
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::process()
{
    switch (state_) {
    case InteractorState::Normal:
        doNormalUpdate();
        break;
    case InteractorState::Hover:
        doHoverUpdate();
        break;
    case InteractorState::Select:
        doSelectUpdate();
        break;
    case InteractorState::Disabled:
        break;
    }
    whenProcessed_.invoke();
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::postprocess()
{
    // Commands that this update did not use are lost: a press never waits for a later frame.
    clearSelectorQueue();
    doPostprocess();
    whenPostprocessed_.invoke();
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::processCandidate()
{
    candidate_ = nullptr;
    if (!updateActiveState()) {
        return;
    }
    candidate_ = computeCandidateOverride_ ? computeCandidateOverride_() : computeCandidate();
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::updateActiveState()
{
    if (activeState_ == nullptr || activeState_->isActive()) {
        return true;
    }
    disable();
    return false;
}

// Neither enable() nor disable() goes through setState(): listeners never hear of Disabled, by design.
template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::enable()
{
    if (!updateActiveState()) {
        return;
    }
    if (state_ == InteractorState::Disabled) {
        state_ = InteractorState::Normal;
        handleEnabled();
    }
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::disable()
{
    if (state_ == InteractorState::Disabled) {
        return;
    }
    handleDisabled();
    if (state_ == InteractorState::Select) {
        unselectInteractable();
        state_ = InteractorState::Hover;
    }
    if (state_ == InteractorState::Hover) {
        unsetInteractable();
        state_ = InteractorState::Normal;
    }
    if (state_ == InteractorState::Normal) {
        state_ = InteractorState::Disabled;
    }
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::shouldHover()
{
    if (state_ != InteractorState::Normal) {
        return false;
    }
    return candidate_ != nullptr || computeShouldSelect();
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::shouldUnhover() const
{
    if (state_ != InteractorState::Hover) {
        return false;
    }
    return interactable_ != candidate_ || candidate_ == nullptr;
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::shouldSelect()
{
    if (state_ != InteractorState::Hover) {
        return false;
    }
    if (computeShouldSelectOverride_) {
        return computeShouldSelectOverride_();
    }
    return candidate_ == interactable_ && computeShouldSelect();
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::shouldUnselect() const
{
    if (state_ != InteractorState::Select) {
        return false;
    }
    if (computeShouldUnselectOverride_) {
        return computeShouldUnselectOverride_();
    }
    return computeShouldUnselect();
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::hover()
{
    if (state_ != InteractorState::Normal) {
        return;
    }
    setInteractable(candidate_);
    setState(InteractorState::Hover);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::unhover()
{
    if (state_ != InteractorState::Hover) {
        return;
    }
    unsetInteractable();
    setState(InteractorState::Normal);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::select()
{
    if (state_ != InteractorState::Hover) {
        return;
    }
    if (clearComputeCandidateOverrideOnSelect_) {
        clearComputeCandidateOverride();
    }
    if (clearComputeShouldSelectOverrideOnSelect_) {
        clearComputeShouldSelectOverride();
    }
    while (queuedSelect()) {
        selectorQueue_.pop();
    }
    if (interactable_ != nullptr) {
        selectInteractable(interactable_);
    }
    setState(InteractorState::Select);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::unselect()
{
    if (state_ != InteractorState::Select) {
        return;
    }
    if (clearComputeShouldUnselectOverrideOnUnselect_) {
        clearComputeShouldUnselectOverride();
    }
    while (queuedUnselect()) {
        selectorQueue_.pop();
    }
    unselectInteractable();
    setState(InteractorState::Hover);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setState(InteractorState newState)
{
    if (newState == state_) {
        return;
    }
    const InteractorState previousState = std::exchange(state_, newState);
    whenStateChanged_.invoke({previousState, newState});
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setInteractable(TInteractable* target)
{
    if (target == interactable_) {
        return;
    }
    unsetInteractable();
    interactable_ = target;
    target->addInteractor(getInteractorPtr());
    interactableSet(target);
}

// The two releases clear the field before the removal, which comes back through interactableChangesUpdate().
template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::unsetInteractable()
{
    if (interactable_ == nullptr) {
        return;
    }
    TInteractable* const former = std::exchange(interactable_, nullptr);
    former->removeInteractor(getInteractorPtr());
    interactableUnset(former);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::selectInteractable(TInteractable* target)
{
    unselect();
    selectedInteractable_ = target;
    target->addSelectingInteractor(getInteractorPtr());
    interactableSelected(target);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::unselectInteractable()
{
    if (selectedInteractable_ == nullptr) {
        return;
    }
    TInteractable* const former = std::exchange(selectedInteractable_, nullptr);
    former->removeSelectingInteractor(getInteractorPtr());
    interactableUnselected(former);
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::interactableChangesUpdate()
{
    if (selectedInteractable_ != nullptr &&
        !selectedInteractable_->hasSelectingInteractor(*getInteractorPtr())) {
        unselectInteractable();
    }
    if (interactable_ != nullptr && !interactable_->hasInteractor(*getInteractorPtr())) {
        unsetInteractable();
    }
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::interactableDestroyed(const TInteractable* interactable)
{
    if (candidate_ == interactable) {
        candidate_ = nullptr;
    }
}

template <typename TInteractor, typename TInteractable>
Interactor<TInteractor, TInteractable>::Interactor(std::shared_ptr<active_state::IActiveState>&& activeState,
                                                   std::shared_ptr<core::IPayload>&& payload)
    : activeState_(std::move(activeState))
    , payload_(std::move(payload))
    , destroyedToken_(TInteractable::getStaticRegistry().subscribeToWhenInteractableDestroyed(
          [this](const TInteractable* interactable) { interactableDestroyed(interactable); }))
{
}

template <typename TInteractor, typename TInteractable>
Interactor<TInteractor, TInteractable>::~Interactor()
{
    TInteractable::getStaticRegistry().unsubscribeToWhenInteractableDestroyed(destroyedToken_);
    for (const ExtraSubscription& extra : extraSubscriptions_) {
        if (const auto selector = extra.selector.lock()) {
            selector->unsubscribeToWhenSelected(extra.selectedToken);
            selector->unsubscribeToWhenUnselected(extra.unselectedToken);
        }
    }
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setSelector(std::shared_ptr<select::ISelector>&& selector)
{
    const std::shared_ptr<select::ISelector> former = selector_;
    if (selector == former) {
        return;
    }
    if (former != nullptr) {
        former->unsubscribeToWhenSelected(selectedToken_);
        former->unsubscribeToWhenUnselected(unselectedToken_);
    }
    selector_ = std::move(selector);
    if (selector_ != nullptr) {
        std::tie(selectedToken_, unselectedToken_) = subscribeToSelector();
    }
}

// A selector given to a constructor is thus subscribed twice, and each press pushes two entries, which
// select() and unselect() use up as one. Only the stored pair is ever unsubscribed while this object lives.
template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::onEnable()
{
    if (selector_ == nullptr) {
        return;
    }
    clearSelectorQueue();
    const auto [selectedToken, unselectedToken] = subscribeToSelector();
    extraSubscriptions_.push_back({selector_, selectedToken, unselectedToken});
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::onDisable()
{
    if (selector_ != nullptr) {
        selector_->unsubscribeToWhenSelected(selectedToken_);
        selector_->unsubscribeToWhenUnselected(unselectedToken_);
    }
    disable();
}

template <typename TInteractor, typename TInteractable>
std::pair<uint32_t, uint32_t> Interactor<TInteractor, TInteractable>::subscribeToSelector()
{
    const uint32_t selectedToken = selector_->subscribeToWhenSelected([this] { handleSelected(); });
    const uint32_t unselectedToken = selector_->subscribeToWhenUnselected([this] { handleUnselected(); });
    return {selectedToken, unselectedToken};
}

// An empty queue is left alone: a fresh one would allocate in every frame.
template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::clearSelectorQueue()
{
    if (!selectorQueue_.empty()) {
        std::queue<bool>().swap(selectorQueue_);
    }
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setComputeCandidateOverride(
    std::function<TInteractable*()>&& compute, bool clearOnSelect)
{
    computeCandidateOverride_ = std::move(compute);
    clearComputeCandidateOverrideOnSelect_ = clearOnSelect;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::clearComputeCandidateOverride()
{
    computeCandidateOverride_ = nullptr;
    clearComputeCandidateOverrideOnSelect_ = false;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setComputeShouldSelectOverride(std::function<bool()>&& compute,
                                                                            bool clearOnSelect)
{
    computeShouldSelectOverride_ = std::move(compute);
    clearComputeShouldSelectOverrideOnSelect_ = clearOnSelect;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::clearComputeShouldSelectOverride()
{
    computeShouldSelectOverride_ = nullptr;
    clearComputeShouldSelectOverrideOnSelect_ = false;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::setComputeShouldUnselectOverride(std::function<bool()>&& compute,
                                                                              bool clearOnUnselect)
{
    computeShouldUnselectOverride_ = std::move(compute);
    clearComputeShouldUnselectOverrideOnUnselect_ = clearOnUnselect;
}

template <typename TInteractor, typename TInteractable>
void Interactor<TInteractor, TInteractable>::clearComputeShouldUnselectOverride()
{
    computeShouldUnselectOverride_ = nullptr;
    clearComputeShouldUnselectOverrideOnUnselect_ = false;
}

template <typename TInteractor, typename TInteractable>
bool Interactor<TInteractor, TInteractable>::canSelect(TInteractable* interactable)
{
    return std::all_of(interactableFilters_.begin(), interactableFilters_.end(),
                       [interactable](const auto& filter) { return filter->filter(interactable); });
}

} // namespace velk::interaction
