// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/IPointableElement.h"
#include "velk_core/interaction/Interactor.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace velk::interaction
{

/// An interactor that reports what it does to the interactable as pointer events: Hover and Select after the
/// base class's events, Unhover and Unselect before them, Move last in each update.
template <typename TInteractor, typename TInteractable>
class PointerInteractor : public Interactor<TInteractor, TInteractable>
{
    using Base = Interactor<TInteractor, TInteractable>;

public:
    using Base::Base;

    /// The elements that this interactor still listens to may outlive it.
    ~PointerInteractor() override
    {
        for (const ElementSubscription& subscription : elementSubscriptions_) {
            if (const auto element = subscription.element.lock()) {
                element->unsubscribeToWhenPointerEventRaised(subscription.token);
            }
        }
    }

protected:
    void interactableSet(TInteractable* interactable) override
    {
        Base::interactableSet(interactable);
        generatePointerEvent(PointerEventType::Hover, interactable);
    }

    void interactableUnset(TInteractable* interactable) override
    {
        generatePointerEvent(PointerEventType::Unhover, interactable);
        Base::interactableUnset(interactable);
    }

    void interactableSelected(TInteractable* interactable) override
    {
        Base::interactableSelected(interactable);
        generatePointerEvent(PointerEventType::Select, interactable);
    }

    void interactableUnselected(TInteractable* interactable) override
    {
        generatePointerEvent(PointerEventType::Unselect, interactable);
        Base::interactableUnselected(interactable);
    }

    void doPostprocess() override
    {
        Base::doPostprocess();
        if (this->interactable() != nullptr) {
            generatePointerEvent(PointerEventType::Move, this->interactable());
        }
    }

    /// Reacts to a Cancel that an element raises for this interactor: lets go of the interactable at once.
    /// The state follows in the next update.
    virtual void handlePointerEventRaised(PointerEvent event)
    {
        TInteractable* const target = this->interactable();
        if (event.identifier != this->getIdentifier() || event.type != PointerEventType::Cancel ||
            target == nullptr) {
            return;
        }
        target->removeInteractorById(this->getIdentifier());
        if (const auto element = target->getPointableElement()) {
            unsubscribeFromElement(element);
        }
    }

    /// Where the pointer is now, in world space.
    virtual Posef computePointerPose() = 0;

    void generatePointerEvent(PointerEventType type, TInteractable* target)
    {
        // The pose comes first, also where there is nobody to tell.
        const Posef pose = computePointerPose();
        if (target == nullptr) {
            return;
        }
        if (const auto element = target->getPointableElement()) {
            if (type == PointerEventType::Hover) {
                subscribeToElement(element);
            } else if (type == PointerEventType::Unhover) {
                unsubscribeFromElement(element);
            }
        }
        target->publishPointerEvent(PointerEvent(this->getIdentifier(), type, pose));
    }

private:
    struct ElementSubscription
    {
        std::weak_ptr<IPointableElement> element;
        uint32_t token = utility::kNoToken;
    };

    void subscribeToElement(const std::shared_ptr<IPointableElement>& element)
    {
        pointerEventToken_ = element->subscribeToWhenPointerEventRaised(
            [this](const PointerEvent& event) { handlePointerEventRaised(event); });
        std::erase_if(elementSubscriptions_, [](const auto& former) { return former.element.expired(); });
        elementSubscriptions_.push_back({element, pointerEventToken_});
    }

    void unsubscribeFromElement(const std::shared_ptr<IPointableElement>& element)
    {
        element->unsubscribeToWhenPointerEventRaised(pointerEventToken_);
        std::erase_if(elementSubscriptions_, [&](const auto& subscription) {
            return subscription.token == pointerEventToken_ && subscription.element.lock() == element;
        });
    }

    /// The subscription with the element of the interactable that is hovered now.
    uint32_t pointerEventToken_ = utility::kNoToken;
    /// All subscriptions not yet ended. There is one at most, but for an interactable that drops its element
    /// while this interactor is on it.
    std::vector<ElementSubscription> elementSubscriptions_;
};

} // namespace velk::interaction
