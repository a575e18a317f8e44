// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The transitions of an interactor, and what decides each. All but the last two raise whenStateChanged.
//
//   from      to        by          when
//   Normal    Hover     hover()     there is a candidate
//   Normal    Hover     hover()     a select is pending in empty air
//   Hover     Select    select()    a select is pending; goes before unhover()
//   Hover     Normal    unhover()   the candidate changed, or there is none
//   Select    Hover     unselect()  a release is pending
//   Disabled  Normal    enable()    the active state is on
//   any       Disabled  disable()   the active state is off
#include "velk_core/interaction/InteractorMachine.h"

#include <utility>

namespace velk::interaction
{

using witness::judge;
using witness::Rule;

void InteractorMachine::update()
{
    if (getIsRootDriver()) {
        drive();
    }
}

// The order of these steps is the library's behaviour: none may be moved.
void InteractorMachine::drive()
{
    witness::noteUpdate(static_cast<const IInteractor*>(this));
    preprocess();
    if (!updateActiveState()) {
        disable(); // again: a kind that overrides disable() is called at each step that stops
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
        if (!makeTransition(pass)) {
            break;
        }
    }
    postprocess();
}

// One transition at most; false when the machine has come to rest.
bool InteractorMachine::makeTransition(int pass)
{
    const auto note = [pass](Rule rule) {
        judge(rule, true, static_cast<float>(pass), static_cast<float>(kMaxPasses));
    };
    switch (state_) {
    case InteractorState::Normal:
        if (shouldHover()) {
            note(Rule::MachineHover);
            hover();
            return true;
        }
        return false;
    case InteractorState::Hover:
        if (shouldSelect()) {
            note(Rule::MachineSelect);
            select();
            return true;
        }
        if (shouldUnhover()) {
            note(Rule::MachineUnhover);
            unhover();
            return true;
        }
        return false;
    case InteractorState::Select:
        if (shouldUnselect()) {
            note(Rule::MachineUnselect);
            unselect();
            return true;
        }
        return false;
    case InteractorState::Disabled:
        return false;
    }
    return false;
}

void InteractorMachine::preprocess()
{
    doPreprocess();
    if (!updateActiveState()) {
        disable();
    }
    whenPreprocessed_.invoke();
}

void InteractorMachine::process()
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

void InteractorMachine::postprocess()
{
    // Commands that this update did not use are lost: a press never waits for a later frame.
    selectorQueue_.clear();
    doPostprocess();
    whenPostprocessed_.invoke();
}

void InteractorMachine::processCandidate()
{
    candidate_ = nullptr;
    if (!updateActiveState()) {
        return;
    }
    candidate_ = candidateOverride_ ? candidateOverride_() : computeCandidate();
}

bool InteractorMachine::updateActiveState()
{
    return activeState_ == nullptr || askActiveState();
}

bool InteractorMachine::askActiveState()
{
    if (judge(Rule::MachineActive, activeState_->isActive())) {
        return true;
    }
    disable();
    return false;
}

// Neither enable() nor disable() goes through setState(), so listeners never hear of Disabled.
void InteractorMachine::enable()
{
    if (!updateActiveState()) {
        return;
    }
    if (state_ == InteractorState::Disabled) {
        state_ = InteractorState::Normal;
        handleEnabled();
    }
}

void InteractorMachine::disable()
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

bool InteractorMachine::shouldHover()
{
    if (state_ != InteractorState::Normal) {
        return false;
    }
    return candidate_ != nullptr || computeShouldSelect();
}

bool InteractorMachine::shouldUnhover() const
{
    if (state_ != InteractorState::Hover) {
        return false;
    }
    return interactable_ != candidate_ || candidate_ == nullptr;
}

bool InteractorMachine::shouldSelect()
{
    if (state_ != InteractorState::Hover) {
        return false;
    }
    if (shouldSelectOverride_) {
        return shouldSelectOverride_();
    }
    return judge(Rule::MachineKeepsTarget, candidate_ == interactable_) && computeShouldSelect();
}

bool InteractorMachine::shouldUnselect() const
{
    if (state_ != InteractorState::Select) {
        return false;
    }
    if (shouldUnselectOverride_) {
        return shouldUnselectOverride_();
    }
    return computeShouldUnselect();
}

void InteractorMachine::hover()
{
    if (state_ != InteractorState::Normal) {
        return;
    }
    setInteractable(candidate_);
    setState(InteractorState::Hover);
}

void InteractorMachine::unhover()
{
    if (state_ != InteractorState::Hover) {
        return;
    }
    unsetInteractable();
    setState(InteractorState::Normal);
}

void InteractorMachine::select()
{
    if (state_ != InteractorState::Hover) {
        return;
    }
    if (candidateOverride_.isOneShot()) {
        clearComputeCandidateOverride();
    }
    if (shouldSelectOverride_.isOneShot()) {
        clearComputeShouldSelectOverride();
    }
    selectorQueue_.take(true);
    if (interactable_ != nullptr) {
        selectInteractable(interactable_);
    }
    setState(InteractorState::Select);
}

void InteractorMachine::unselect()
{
    if (state_ != InteractorState::Select) {
        return;
    }
    if (shouldUnselectOverride_.isOneShot()) {
        clearComputeShouldUnselectOverride();
    }
    selectorQueue_.take(false);
    unselectInteractable();
    setState(InteractorState::Hover);
}

void InteractorMachine::setState(InteractorState newState)
{
    if (newState == state_) {
        return;
    }
    const InteractorState previousState = std::exchange(state_, newState);
    whenStateChanged_.invoke({previousState, newState});
}

} // namespace velk::interaction
