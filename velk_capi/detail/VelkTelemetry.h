// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::capi::telemetry
{

/// Counts one use of the hand grab, which starts telemetry if that hasn't happened yet. Nothing is sent at
/// once.
int32_t sendTestData();

} // namespace velk::capi::telemetry
