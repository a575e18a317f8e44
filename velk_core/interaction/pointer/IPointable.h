// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/pointer/PointerEvent.h"

#include <cstdint>
#include <functional>

namespace velk::interaction
{

/// Raises pointer events.
class IPointable
{
public:
    virtual ~IPointable() = default;

    virtual uint32_t
    subscribeToWhenPointerEventRaised(std::function<void(const PointerEvent&)>&& handler) = 0;
    virtual void unsubscribeToWhenPointerEventRaised(uint32_t token) = 0;
};

} // namespace velk::interaction
