// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IEnable.h"
#include "velk_core/interaction/InteractorMachine.h"
#include "velk_core/interaction/filters/FilterPayloads.h"
#include "velk_core/interaction/filters/IFilterableObject.h"
#include "velk_core/interaction/filters/IObjectFilter.h"
#include "velk_core/select/IHasSelector.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/OrderedSet.h"
#include "velk_core/utility/Subscription.h"
#include "velk_core/utility/UniqueIdentifier.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace velk::interaction
{

/// The state machine linked with one kind of interactable: it and its interactable refer to each other, and
/// each change of the link is an event.
///
/// Invariants: selectedInteractable, when set, has this interactor among its selecting ones; interactable,
/// when set, has it among its interactors.
template <typename TInteractor, typename TInteractable>
class Interactor : public InteractorMachine,
                   public core::IEnable,
                   public select::IHasSelector,
                   public filters::IFilterableObject
{
public:
    Interactor(std::shared_ptr<active_state::IActiveState>&& activeState,
               std::shared_ptr<core::IPayload>&& payload)
        : InteractorMachine(std::move(activeState))
        , payload_(std::move(payload))
        , interactableDestroyed_(TInteractable::getStaticRegistry().registerInteractableDestroyedHandler(
              [this](const TInteractable* interactable) { interactableDestroyed(interactable); }))
    {
    }

    int getIdentifier() const override { return static_cast<int>(identifier_.get()); }
    core::IPayload* getPayload() const override { return payload_.get(); }
    void setPayload(std::shared_ptr<core::IPayload> payload) override { payload_ = std::move(payload); }
    std::weak_ptr<ICandidateProperty> getCandidateProperties() const override { return {}; }

    uint32_t subscribeToWhenInteractableSet(std::function<void(TInteractable*)>&& handler)
    {
        return whenInteractableSet_.subscribe(std::move(handler));
    }
    uint32_t subscribeToWhenInteractableUnset(std::function<void(TInteractable*)>&& handler)
    {
        return whenInteractableUnset_.subscribe(std::move(handler));
    }
    uint32_t subscribeToWhenInteractableSelected(std::function<void(TInteractable*)>&& handler)
    {
        return whenInteractableSelected_.subscribe(std::move(handler));
    }
    uint32_t subscribeToWhenInteractableUnselected(std::function<void(TInteractable*)>&& handler)
    {
        return whenInteractableUnselected_.subscribe(std::move(handler));
    }

    std::shared_ptr<select::ISelector> getSelector() override { return selectorQueue_.getSelector(); }
    void setSelector(std::shared_ptr<select::ISelector>&& selector) override
    {
        selectorQueue_.setSelector(std::move(selector));
    }

    /// A selector that was given before is subscribed twice from now on; select() and unselect() use the two
    /// commands of each press or release as one.
    void onEnable() override { selectorQueue_.subscribeAgain(); }
    void onDisable() override
    {
        selectorQueue_.unsubscribe();
        disable();
    }

    virtual void setComputeCandidateOverride(std::function<TInteractable*()>&& compute, bool clearOnSelect)
    {
        candidateOverride_.set(std::move(compute), clearOnSelect);
    }

    /// Whether all filters admit the interactable.
    virtual bool canSelect(TInteractable* interactable)
    {
        return std::all_of(interactableFilters_.begin(), interactableFilters_.end(),
                           [interactable](const auto& filter) { return filter->filter(interactable); });
    }

    void setFilterPayload(std::type_index type, std::shared_ptr<filters::IFilterPayload> payload) override
    {
        filterPayloads_.set(type, std::move(payload));
    }
    std::shared_ptr<filters::IFilterPayload> getFilterPayload(std::type_index type) override
    {
        return filterPayloads_.get(type);
    }

    /// Called by an interactable whose set has lost this interactor: lets go of what it no longer has. The
    /// state stays until the machine moves on in a later drive().
    void interactableChangesUpdate()
    {
        if (selectedInteractable() != nullptr &&
            !selectedInteractable()->hasSelectingInteractor(*getInteractorPtr())) {
            unselectInteractable();
        }
        if (interactable() != nullptr && !interactable()->hasInteractor(*getInteractorPtr())) {
            unsetInteractable();
        }
    }

protected:
    TInteractable* computeCandidate() override = 0;
    virtual TInteractor* getInteractorPtr() = 0;
    virtual void interactableSet(TInteractable* interactable) { whenInteractableSet_.invoke(interactable); }
    virtual void interactableUnset(TInteractable* interactable)
    {
        whenInteractableUnset_.invoke(interactable);
    }
    virtual void interactableSelected(TInteractable* interactable)
    {
        whenInteractableSelected_.invoke(interactable);
    }
    virtual void interactableUnselected(TInteractable* interactable)
    {
        whenInteractableUnselected_.invoke(interactable);
    }
    /// An interactable is gone for good: forget its address, which a new one may get.
    virtual void interactableDestroyed(const TInteractable* interactable)
    {
        // The links are gone by now, but for those to one that was disabled before they were made.
        for (IInteractable** remembered : {&candidate_, &interactable_, &selectedInteractable_}) {
            if (*remembered == interactable) {
                *remembered = nullptr;
            }
        }
    }

    TInteractable* interactable() const { return static_cast<TInteractable*>(interactable_); }
    TInteractable* selectedInteractable() const { return static_cast<TInteractable*>(selectedInteractable_); }

    /// Empty unless a subclass adds some; consulted on every check all the same.
    utility::OrderedSet<std::shared_ptr<filters::IObjectFilter>> interactableFilters_;

private:
    void setInteractable(IInteractable* target) override
    {
        if (target == interactable_) {
            return;
        }
        unsetInteractable();
        interactable_ = target;
        try {
            interactable()->addInteractor(getInteractorPtr());
            interactableSet(static_cast<TInteractable*>(target));
        } catch (const std::bad_alloc&) {
            unsetInteractable();
            throw;
        }
    }

    // The two releases clear the field before the removal, which comes back through
    // interactableChangesUpdate().
    void unsetInteractable() override
    {
        if (interactable_ == nullptr) {
            return;
        }
        TInteractable* const former = interactable();
        interactable_ = nullptr;
        former->removeInteractor(getInteractorPtr());
        interactableUnset(former);
    }

    void selectInteractable(IInteractable* target) override
    {
        unselect();
        selectedInteractable_ = target;
        try {
            selectedInteractable()->addSelectingInteractor(getInteractorPtr());
            interactableSelected(static_cast<TInteractable*>(target));
        } catch (const std::bad_alloc&) {
            unselectInteractable();
            throw;
        }
    }

    void unselectInteractable() override
    {
        if (selectedInteractable_ == nullptr) {
            return;
        }
        TInteractable* const former = selectedInteractable();
        selectedInteractable_ = nullptr;
        former->removeSelectingInteractor(getInteractorPtr());
        interactableUnselected(former);
    }

    utility::MultiAction<TInteractable*> whenInteractableSet_;
    utility::MultiAction<TInteractable*> whenInteractableUnset_;
    utility::MultiAction<TInteractable*> whenInteractableSelected_;
    utility::MultiAction<TInteractable*> whenInteractableUnselected_;
    utility::UniqueIdentifier identifier_;
    std::shared_ptr<core::IPayload> payload_;
    filters::FilterPayloads filterPayloads_;
    utility::Subscription interactableDestroyed_;
};

} // namespace velk::interaction
