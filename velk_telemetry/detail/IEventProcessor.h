// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "velk_telemetry/detail/Value.h"

#include <string_view>

namespace velk::telemetry
{

/// Receives the events of a pass, one after the other: prepareEvent, processField for each field,
/// finalizeEvent. The cache is not locked meanwhile, so a processor may call it.
class IEventProcessor
{
public:
    virtual ~IEventProcessor() = default;

    virtual void prepareEvent(std::string_view eventName) = 0;
    virtual void processField(std::string_view fieldName, Value value) = 0;

    /// Returns 1 when the event was processed.
    virtual int finalizeEvent() = 0;
};

} // namespace velk::telemetry
