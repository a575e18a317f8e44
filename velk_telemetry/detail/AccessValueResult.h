// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::telemetry
{

enum class AccessValueResult : int32_t
{
    Read = 1,
    FieldUnknown = -1,
    NotInitialized = -2,
    EventNotAllowed = -3,
    Disabled = -4,
};

} // namespace velk::telemetry
