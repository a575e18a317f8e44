// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/utility/LinkedList.h"
#include "velk_core/utility/MultiAction.h"
#include "velk_core/utility/Subscription.h"

#include <functional>
#include <utility>
#include <vector>

namespace velk::interaction
{

/// All enabled interactables of one kind: where interactors look for candidates. Visited in the order of
/// registration, so that ties are decided the same way in every run. Host thread only.
template <typename TInteractor, typename TInteractable>
class InteractableRegistry
{
public:
    using Interactables = utility::LinkedList<TInteractable>;

    void registerInteractable(TInteractable* interactable)
    {
        interactables_.insert(*interactable, interactable->getRegistryLink());
    }
    void unregisterInteractable(TInteractable* interactable)
    {
        interactables_.erase(interactable->getRegistryLink());
    }

    /// The interactables that `interactor` may consider. An empty `filter` admits everything.
    std::vector<TInteractable*> list(TInteractor& interactor,
                                     const std::function<bool(TInteractable*)>& filter) const
    {
        std::vector<TInteractable*> result;
        result.reserve(interactables_.size());
        for (TInteractable* interactable : interactables_) {
            if ((!filter || filter(interactable)) && admits(interactor, *interactable)) {
                result.push_back(interactable);
            }
        }
        return result;
    }

    /// Whether neither forbids it to the other.
    static bool admits(TInteractor& interactor, TInteractable& interactable)
    {
        return interactor.canSelect(&interactable) && interactable.canBeSelectedBy(interactor);
    }

    const Interactables& getAll() const { return interactables_; }

    /// Told by an interactable's destructor, so that whoever remembers its address forgets it. The pointer is
    /// for comparison only.
    void interactableDestroyed(const TInteractable* interactable)
    {
        whenInteractableDestroyed_.invoke(interactable);
    }
    utility::Subscription
    registerInteractableDestroyedHandler(std::function<void(const TInteractable*)>&& handler)
    {
        return whenInteractableDestroyed_.registerHandler(std::move(handler));
    }

private:
    Interactables interactables_;
    utility::MultiAction<const TInteractable*> whenInteractableDestroyed_;
};

} // namespace velk::interaction
