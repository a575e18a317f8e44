// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IPayload.h"
#include "velk_core/interaction/InteractableState.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace velk::interaction
{

/// Something that interactors hover and select, whatever its kind.
class IInteractable
{
public:
    virtual ~IInteractable() = default;

    virtual void enable() = 0;
    virtual void disable() = 0;
    virtual InteractableState getState() const = 0;
    virtual uint32_t subscribeToWhenInteractorsCountUpdated(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenInteractorsCountUpdated(uint32_t token) = 0;
    virtual uint32_t subscribeToWhenSelectingInteractorsCountUpdated(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenSelectingInteractorsCountUpdated(uint32_t token) = 0;
    virtual uint32_t
    subscribeToWhenStateChanged(std::function<void(InteractableStateChangeArgs)>&& handler) = 0;
    virtual void unsubscribeToWhenStateChanged(uint32_t token) = 0;
    virtual int getInteractorsCount() const = 0;
    virtual int getSelectingInteractorsCount() const = 0;
    /// Negative: no limit.
    virtual int getMaxInteractors() const = 0;
    virtual int getMaxSelectingInteractors() const = 0;
    /// Null when there is none.
    virtual core::IPayload* getPayload() const = 0;
    virtual void setPayload(std::shared_ptr<core::IPayload> payload) = 0;
};

} // namespace velk::interaction
