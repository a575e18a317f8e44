// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_common/VelkAssert.h"
#include "velk_core/interaction/Interactable.h"
#include "velk_core/interaction/pointer/IPointable.h"
#include "velk_core/interaction/pointer/IPointableElement.h"

#include <memory>
#include <utility>

namespace velk::interaction
{

/// An interactable that publishes what pointers do on it, to listeners and to an optional element.
template <typename TInteractor, typename TInteractable>
class PointerInteractable : public IPointable, public Interactable<TInteractor, TInteractable>
{
    using Base = Interactable<TInteractor, TInteractable>;

public:
    explicit PointerInteractable(std::shared_ptr<IPointableElement> pointableElement)
        : pointableElement_(std::move(pointableElement))
    {
    }

    uint32_t subscribeToWhenPointerEventRaised(std::function<void(const PointerEvent&)>&& handler) override
    {
        return whenPointerEventRaised_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenPointerEventRaised(uint32_t token) override
    {
        whenPointerEventRaised_.unsubscribe(token);
    }

    void onEnable() override
    {
        Base::onEnable();
        try {
            registerPointableElement(std::shared_ptr<IPointableElement>(pointableElement_));
        } catch (...) {
            Base::onDisable();
            throw;
        }
    }

    /// After this the element is gone for good; a later onEnable() has none to register.
    void onDisable() override
    {
        unregisterPointableElement();
        Base::onDisable();
    }

    void publishPointerEvent(PointerEvent&& event) { whenPointerEventRaised_.invoke(event); }

    /// Whether anybody would hear of a pointer event.
    bool isPointerEventHeard() const
    {
        return whenPointerEventRaised_.hasHandlers() || pointableElement_ != nullptr;
    }

    /// Empty when there is none.
    std::shared_ptr<IPointableElement> getPointableElement() const { return pointableElement_; }

    void registerPointableElement(std::shared_ptr<IPointableElement> element)
    {
        pointableElement_ = std::move(element);
        if (pointableElement_ == nullptr) {
            return;
        }
        // An element that was registered before goes on hearing.
        pointableElementSubscription_.release();
        pointableElementSubscription_ = whenPointerEventRaised_.registerHandler(
            [held = pointableElement_](const PointerEvent& event) { held->processPointerEvent(event); });
    }

    void unregisterPointableElement()
    {
        if (pointableElement_ != nullptr) {
            common::velkAssert(pointableElementSubscription_.isHeld());
            pointableElementSubscription_.end();
        }
        pointableElement_.reset();
    }

private:
    utility::MultiAction<const PointerEvent&> whenPointerEventRaised_;
    std::shared_ptr<IPointableElement> pointableElement_;
    utility::Subscription pointableElementSubscription_;
};

} // namespace velk::interaction
