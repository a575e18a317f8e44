// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/Interactor.h"
#include "velk_core/interaction/pointer/IPointableElement.h"
#include "velk_core/utility/Subscription.h"

#include <cstdint>
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
            unsubscribeFromElement(*element);
        }
    }

    /// Where the pointer is now, in world space.
    virtual Posef computePointerPose() = 0;

    /// Whether to compute the pose also where there is nobody to tell, since others see that it is computed.
    virtual bool isPointerPoseObserved() const { return true; }

    void generatePointerEvent(PointerEventType type, TInteractable* target)
    {
        if (!isPointerPoseObserved() && (target == nullptr || !target->isPointerEventHeard())) {
            return;
        }
        const Posef pose = computePointerPose();
        if (target == nullptr) {
            return;
        }
        if (const auto element = target->getPointableElement()) {
            if (type == PointerEventType::Hover) {
                subscribeToElement(element);
            } else if (type == PointerEventType::Unhover) {
                unsubscribeFromElement(*element);
            }
        }
        target->publishPointerEvent(PointerEvent(this->getIdentifier(), type, pose));
    }

private:
    void subscribeToElement(const std::shared_ptr<IPointableElement>& element)
    {
        if (elementSubscription_.isHeld()) {
            std::erase_if(droppedSubscriptions_, [](const auto& dropped) { return dropped.isExpired(); });
            droppedSubscriptions_.push_back(std::move(elementSubscription_));
        }
        const uint32_t token = element->subscribeToWhenPointerEventRaised(
            [this](const PointerEvent& event) { handlePointerEventRaised(event); });
        elementSubscription_ =
            utility::Subscription::with<&IPointable::unsubscribeToWhenPointerEventRaised>(element, token);
    }

    void unsubscribeFromElement(const IPointableElement& element)
    {
        if (elementSubscription_.isWith(&element)) {
            elementSubscription_.end();
        }
    }

    /// With the element of the interactable that is hovered now.
    utility::Subscription elementSubscription_;
    /// With elements that interactables dropped while this interactor was on them: no Unhover reached these.
    std::vector<utility::Subscription> droppedSubscriptions_;
};

} // namespace velk::interaction
