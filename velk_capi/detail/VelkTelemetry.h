// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::capi::telemetry
{

int32_t sendTestData();

} // namespace velk::capi::telemetry
