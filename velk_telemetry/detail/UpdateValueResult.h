// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::telemetry
{

enum class UpdateValueResult : int32_t
{
    Incremented = 2,
    Set = 1,
    NotInitialized = -2,
    EventNotAllowed = -3,
    Disabled = -5,
};

constexpr bool IsSuccessfulUpdateResult(UpdateValueResult result)
{
    return static_cast<int32_t>(result) >= 1;
}

} // namespace velk::telemetry
