// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IEnable.h"
#include "velk_core/interaction/IInteractable.h"
#include "velk_core/interaction/InteractableRegistry.h"
#include "velk_core/interaction/filters/FilterPayloads.h"
#include "velk_core/interaction/filters/IFilterableObject.h"
#include "velk_core/interaction/filters/IObjectFilter.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/OrderedSet.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace velk::interaction
{

/// What all kinds of interactable share: the state, the interactors now on it, limits, filters and events.
///
/// The state follows from the two sets: somebody selects, somebody is there, nobody. The sets do not own;
/// an interactor that goes away takes itself out first. Each removal tells the interactor, which lets go of
/// what it no longer has, so the two sides agree whichever began. Host thread only.
template <typename TInteractor, typename TInteractable>
class Interactable : public IInteractable, public core::IEnable, public filters::IFilterableObject
{
public:
    using Registry = InteractableRegistry<TInteractor, TInteractable>;
    using Interactors = utility::OrderedSet<TInteractor*>;

    // With room for one, so that the first hover and press of a frame allocate nothing.
    Interactable()
    {
        interactors_.reserve(1);
        selectingInteractors_.reserve(1);
    }
    Interactable(const Interactable&) = delete;
    Interactable& operator=(const Interactable&) = delete;

    void enable() override
    {
        if (state_ != InteractableState::Disabled) {
            return;
        }
        getRegistry().registerInteractable(getInteractablePtr());
        setState(InteractableState::Normal);
    }

    void disable() override
    {
        if (state_ == InteractableState::Disabled) {
            return;
        }
        // Counted, as each removal changes the set; a copy could run out of memory in a destructor.
        for (auto left = selectingInteractors_.size(); left > 0 && !selectingInteractors_.empty(); --left) {
            removeSelectingInteractor(*selectingInteractors_.begin());
        }
        for (auto left = interactors_.size(); left > 0 && !interactors_.empty(); --left) {
            removeInteractor(*interactors_.begin());
        }
        // Not through setState(): the way into Disabled is silent, the way out of it is not.
        state_ = InteractableState::Disabled;
        getRegistry().unregisterInteractable(getInteractablePtr());
    }

    InteractableState getState() const override { return state_; }

    uint32_t subscribeToWhenInteractorsCountUpdated(std::function<void()>&& handler) override
    {
        return whenInteractorsCountUpdated_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenInteractorsCountUpdated(uint32_t token) override
    {
        whenInteractorsCountUpdated_.unsubscribe(token);
    }
    uint32_t subscribeToWhenSelectingInteractorsCountUpdated(std::function<void()>&& handler) override
    {
        return whenSelectingInteractorsCountUpdated_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenSelectingInteractorsCountUpdated(uint32_t token) override
    {
        whenSelectingInteractorsCountUpdated_.unsubscribe(token);
    }
    uint32_t subscribeToWhenStateChanged(std::function<void(InteractableStateChangeArgs)>&& handler) override
    {
        return whenStateChanged_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenStateChanged(uint32_t token) override { whenStateChanged_.unsubscribe(token); }

    int getInteractorsCount() const override { return static_cast<int>(interactors_.size()); }
    int getSelectingInteractorsCount() const override
    {
        return static_cast<int>(selectingInteractors_.size());
    }
    int getMaxInteractors() const override { return maxInteractors_; }
    int getMaxSelectingInteractors() const override { return maxSelectingInteractors_; }
    core::IPayload* getPayload() const override { return payload_.get(); }
    void setPayload(std::shared_ptr<core::IPayload> payload) override { payload_ = std::move(payload); }

    /// The registry of the concrete kind, and this object as that kind.
    virtual Registry& getRegistry() = 0;
    virtual TInteractable* getInteractablePtr() = 0;

    void onEnable() override { enable(); }
    void onDisable() override { disable(); }

    virtual void interactorAdded(TInteractor* interactor) { whenInteractorAdded_.invoke(interactor); }
    virtual void interactorRemoved(TInteractor* interactor) { whenInteractorRemoved_.invoke(interactor); }
    virtual void selectingInteractorAdded(TInteractor* interactor)
    {
        whenSelectingInteractorAdded_.invoke(interactor);
    }
    virtual void selectingInteractorRemoved(TInteractor* interactor)
    {
        whenSelectingInteractorRemoved_.invoke(interactor);
    }

    void setFilterPayload(std::type_index type, std::shared_ptr<filters::IFilterPayload> payload) override
    {
        filterPayloads_.set(type, std::move(payload));
    }
    std::shared_ptr<filters::IFilterPayload> getFilterPayload(std::type_index type) override
    {
        return filterPayloads_.get(type);
    }

    void addInteractor(TInteractor* interactor)
    {
        interactors_.insert(interactor);
        whenInteractorsCountUpdated_.invoke();
        interactorAdded(interactor);
        updateInteractableState();
    }

    void removeInteractor(TInteractor* interactor)
    {
        if (!interactors_.erase(interactor)) {
            return;
        }
        interactor->interactableChangesUpdate();
        whenInteractorsCountUpdated_.invoke();
        interactorRemoved(interactor);
        updateInteractableState();
    }

    /// Its place in its registry.
    typename Registry::Interactables::Link& getRegistryLink() { return registryLink_; }

    bool hasInteractor(const TInteractor& interactor) const { return interactors_.contains(&interactor); }

    void addSelectingInteractor(TInteractor* interactor)
    {
        selectingInteractors_.insert(interactor);
        whenSelectingInteractorsCountUpdated_.invoke();
        selectingInteractorAdded(interactor);
        updateInteractableState();
    }

    void removeSelectingInteractor(TInteractor* interactor)
    {
        if (!selectingInteractors_.erase(interactor)) {
            return;
        }
        interactor->interactableChangesUpdate();
        whenSelectingInteractorsCountUpdated_.invoke();
        selectingInteractorRemoved(interactor);
        updateInteractableState();
    }

    bool hasSelectingInteractor(const TInteractor& interactor) const
    {
        return selectingInteractors_.contains(&interactor);
    }

    /// Takes the interactor with this identifier off, from each set that it is in.
    void removeInteractorById(int identifier)
    {
        if (TInteractor* interactor = findById(selectingInteractors_, identifier)) {
            removeSelectingInteractor(interactor);
        }
        if (TInteractor* interactor = findById(interactors_, identifier)) {
            removeInteractor(interactor);
        }
    }

    bool canBeSelectedBy(const TInteractor& interactor) const
    {
        if (state_ == InteractableState::Disabled) {
            return false;
        }
        if (maxSelectingInteractors_ >= 0 && getSelectingInteractorsCount() == maxSelectingInteractors_) {
            return false;
        }
        if (maxInteractors_ >= 0 && getInteractorsCount() == maxInteractors_ && !hasInteractor(interactor)) {
            return false;
        }
        // A filter takes its object as mutable, since asking for an absent payload adds an entry.
        filters::IFilterableObject* object = const_cast<TInteractor*>(&interactor);
        return std::all_of(interactorFilters_.begin(), interactorFilters_.end(),
                           [object](const auto& filter) { return filter->filter(object); });
    }

    /// In the order in which they came.
    const Interactors& getInteractors() const { return interactors_; }

    uint32_t subscribeToWhenInteractorAdded(std::function<void(TInteractor*)>&& handler)
    {
        return whenInteractorAdded_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenInteractorAdded(uint32_t token) { whenInteractorAdded_.unsubscribe(token); }
    uint32_t subscribeToWhenInteractorRemoved(std::function<void(TInteractor*)>&& handler)
    {
        return whenInteractorRemoved_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenInteractorRemoved(uint32_t token) { whenInteractorRemoved_.unsubscribe(token); }

private:
    static TInteractor* findById(const Interactors& interactors, int identifier)
    {
        const auto found =
            std::find_if(interactors.begin(), interactors.end(), [identifier](const TInteractor* interactor) {
                return interactor->getIdentifier() == identifier;
            });
        return found == interactors.end() ? nullptr : *found;
    }

    void updateInteractableState()
    {
        if (state_ == InteractableState::Disabled) {
            return;
        }
        if (getSelectingInteractorsCount() >= 1) {
            setState(InteractableState::Select);
        } else if (getInteractorsCount() > 0) {
            setState(InteractableState::Hover);
        } else {
            setState(InteractableState::Normal);
        }
    }

    void setState(InteractableState newState)
    {
        if (newState == state_) {
            return;
        }
        const InteractableState previousState = std::exchange(state_, newState);
        whenStateChanged_.invoke({previousState, newState});
    }

    InteractableState state_ = InteractableState::Disabled;
    typename Registry::Interactables::Link registryLink_;
    Interactors selectingInteractors_;
    Interactors interactors_;
    utility::MultiAction<> whenInteractorsCountUpdated_;
    utility::MultiAction<> whenSelectingInteractorsCountUpdated_;
    utility::MultiAction<InteractableStateChangeArgs> whenStateChanged_;
    utility::MultiAction<TInteractor*> whenInteractorAdded_;
    utility::MultiAction<TInteractor*> whenInteractorRemoved_;
    utility::MultiAction<TInteractor*> whenSelectingInteractorAdded_;
    utility::MultiAction<TInteractor*> whenSelectingInteractorRemoved_;

protected:
    /// Negative: no limit. Nothing in the library sets one.
    int maxSelectingInteractors_ = -1;
    int maxInteractors_ = -1;

private:
    std::shared_ptr<core::IPayload> payload_;
    filters::FilterPayloads filterPayloads_;

protected:
    /// Empty unless a subclass adds some; consulted on every check all the same.
    utility::OrderedSet<std::shared_ptr<filters::IObjectFilter>> interactorFilters_;
};

} // namespace velk::interaction
