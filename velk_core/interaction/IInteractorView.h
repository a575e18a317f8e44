// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IPayload.h"
#include "velk_core/interaction/ICandidateProperty.h"
#include "velk_core/interaction/InteractorState.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace velk::interaction
{

/// The reading side of an interactor.
class IInteractorView
{
public:
    virtual ~IInteractorView() = default;

    virtual int getIdentifier() const = 0;
    /// Null when there is none.
    virtual core::IPayload* getPayload() const = 0;
    virtual void setPayload(std::shared_ptr<core::IPayload> payload) = 0;
    virtual bool hasCandidate() const = 0;
    virtual std::weak_ptr<ICandidateProperty> getCandidateProperties() const = 0;
    virtual bool hasInteractable() const = 0;
    virtual bool hasSelectedInteractable() const = 0;
    virtual InteractorState getState() const = 0;
    virtual uint32_t
    subscribeToWhenStateChanged(std::function<void(InteractorStateChangeArgs)>&& handler) = 0;
    virtual void unsubscribeToWhenStateChanged(uint32_t token) = 0;
    virtual uint32_t subscribeToWhenPreprocessed(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenPreprocessed(uint32_t token) = 0;
    virtual uint32_t subscribeToWhenProcessed(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenProcessed(uint32_t token) = 0;
    virtual uint32_t subscribeToWhenPostprocessed(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenPostprocessed(uint32_t token) = 0;
};

} // namespace velk::interaction
