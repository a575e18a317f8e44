// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IActiveState.h"
#include "velk_core/core/IEnable.h"
#include "velk_core/interaction/FilterPayloads.h"
#include "velk_core/interaction/IFilterableObject.h"
#include "velk_core/interaction/IInteractor.h"
#include "velk_core/interaction/IObjectFilter.h"
#include "velk_core/select/IHasSelector.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/OrderedSet.h"
#include "velk_core/utility/UniqueIdentifier.h"

#include <functional>
#include <memory>
#include <queue>
#include <utility>
#include <vector>

namespace velk::interaction
{

/// The state machine at the heart of the library: decides once per update whether the thing that it stands
/// for does nothing, hovers or selects. What differs between kinds is in the virtual hooks; the machine
/// itself, its sequence and its decisions, stand in InteractorDrive.h.
///
/// Invariants: selectedInteractable, when set, has this interactor among its selecting ones; interactable,
/// when set, has it among its interactors. In Hover and Select either may be null; in Normal and Disabled
/// both are. Host thread only; an event handler must not update the interactor that raised the event.
template <typename TInteractor, typename TInteractable>
class Interactor : public IInteractor,
                   public core::IEnable,
                   public select::IHasSelector,
                   public filters::IFilterableObject
{
public:
    using WhenStateChanged = utility::MultiAction<InteractorStateChangeArgs>;

    /// An empty `activeState` counts as active.
    Interactor(std::shared_ptr<active_state::IActiveState>&& activeState,
               std::shared_ptr<core::IPayload>&& payload);
    Interactor(const Interactor&) = delete;
    Interactor& operator=(const Interactor&) = delete;
    ~Interactor() override;

    int getIdentifier() const override { return static_cast<int>(identifier_.get()); }
    core::IPayload* getPayload() const override { return payload_.get(); }
    void setPayload(std::shared_ptr<core::IPayload> payload) override { payload_ = std::move(payload); }
    bool hasCandidate() const override { return candidate_ != nullptr; }
    std::weak_ptr<ICandidateProperty> getCandidateProperties() const override { return {}; }
    bool hasInteractable() const override { return interactable_ != nullptr; }
    bool hasSelectedInteractable() const override { return selectedInteractable_ != nullptr; }
    InteractorState getState() const override { return state_; }

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

    typename WhenStateChanged::HandlerToken
    registerWhenStateChangedHandler(std::function<void(InteractorStateChangeArgs)>&& handler)
    {
        return whenStateChanged_.registerHandler(std::move(handler));
    }

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
    IInteractable* getInteractablePtr() const override { return interactable_; }
    IInteractable* getSelectedInteractablePtr() const override { return selectedInteractable_; }

    std::shared_ptr<select::ISelector> getSelector() override { return selector_; }
    void setSelector(std::shared_ptr<select::ISelector>&& selector) override;

    /// With `clearOnSelect` (or `clearOnUnselect`) the override is one-shot: it goes at the next select
    /// (or unselect).
    virtual void setComputeCandidateOverride(std::function<TInteractable*()>&& compute, bool clearOnSelect);
    virtual void clearComputeCandidateOverride();
    virtual void setComputeShouldSelectOverride(std::function<bool()>&& compute, bool clearOnSelect);
    virtual void clearComputeShouldSelectOverride();
    virtual void setComputeShouldUnselectOverride(std::function<bool()>&& compute, bool clearOnUnselect);
    virtual void clearComputeShouldUnselectOverride();

    /// Asks the filters about the interactable.
    virtual bool canSelect(TInteractable* interactable);

    void onEnable() override;
    void onDisable() override;

    bool getIsRootDriver() override { return isRootDriver_; }
    void setIsRootDriver(bool isRootDriver) override { isRootDriver_ = isRootDriver; }
    void update() override;
    void drive() override;

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
    void interactableChangesUpdate();

protected:
    virtual void doPreprocess() {}
    virtual void doNormalUpdate() {}
    virtual void doHoverUpdate() {}
    virtual void doSelectUpdate() {}
    virtual bool computeShouldSelect() { return queuedSelect(); }
    virtual bool computeShouldUnselect() const { return queuedUnselect(); }
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
    virtual void doPostprocess() {}
    virtual TInteractable* computeCandidate() = 0;
    virtual void handleEnabled() {}
    virtual void handleDisabled() {}
    virtual void handleSelected() { selectorQueue_.push(true); }
    virtual void handleUnselected() { selectorQueue_.push(false); }
    virtual TInteractor* getInteractorPtr() = 0;
    /// An interactable is gone for good: forget its address, which a new one may get.
    virtual void interactableDestroyed(const TInteractable* interactable);

    bool queuedSelect() const { return !selectorQueue_.empty() && selectorQueue_.front(); }
    bool queuedUnselect() const { return !selectorQueue_.empty() && !selectorQueue_.front(); }

    TInteractable* interactable() const { return interactable_; }
    TInteractable* selectedInteractable() const { return selectedInteractable_; }

private:
    /// One drive() makes at most this many passes, whatever the hooks answer.
    static constexpr int kMaxPasses = 3;

    bool makeTransition();
    bool updateActiveState();
    void setState(InteractorState newState);
    void setInteractable(TInteractable* target);
    void unsetInteractable();
    void selectInteractable(TInteractable* target);
    void unselectInteractable();
    std::pair<uint32_t, uint32_t> subscribeToSelector();
    void clearSelectorQueue();

    std::shared_ptr<active_state::IActiveState> activeState_;

protected:
    /// Empty unless a subclass adds some; consulted on every check all the same.
    utility::OrderedSet<std::shared_ptr<filters::IObjectFilter>> interactableFilters_;

private:
    std::function<TInteractable*()> computeCandidateOverride_;
    bool clearComputeCandidateOverrideOnSelect_ = false;
    std::function<bool()> computeShouldSelectOverride_;
    bool clearComputeShouldSelectOverrideOnSelect_ = false;
    std::function<bool()> computeShouldUnselectOverride_;
    bool clearComputeShouldUnselectOverrideOnUnselect_ = false;
    InteractorState state_ = InteractorState::Normal;
    WhenStateChanged whenStateChanged_;
    utility::MultiAction<> whenPreprocessed_;
    utility::MultiAction<> whenProcessed_;
    utility::MultiAction<> whenPostprocessed_;
    std::shared_ptr<select::ISelector> selector_;
    uint32_t selectedToken_ = utility::kNoToken;
    uint32_t unselectedToken_ = utility::kNoToken;
    std::queue<bool> selectorQueue_;
    TInteractable* candidate_ = nullptr;
    TInteractable* interactable_ = nullptr;
    TInteractable* selectedInteractable_ = nullptr;
    utility::MultiAction<TInteractable*> whenInteractableSet_;
    utility::MultiAction<TInteractable*> whenInteractableUnset_;
    utility::MultiAction<TInteractable*> whenInteractableSelected_;
    utility::MultiAction<TInteractable*> whenInteractableUnselected_;
    utility::UniqueIdentifier identifier_;
    std::shared_ptr<core::IPayload> payload_;
    bool isRootDriver_ = true;
    filters::FilterPayloads filterPayloads_;

    /// The subscriptions that onEnable() makes beside the stored pair. Kept only to be dropped with this
    /// object: the selector may outlive it.
    struct ExtraSubscription
    {
        std::weak_ptr<select::ISelector> selector;
        uint32_t selectedToken = utility::kNoToken;
        uint32_t unselectedToken = utility::kNoToken;
    };
    std::vector<ExtraSubscription> extraSubscriptions_;
    uint32_t destroyedToken_;
};

} // namespace velk::interaction

#include "velk_core/interaction/InteractorDrive.h"
