// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::capi::common
{

/// Stores the constant version string; `out` is not tested for null.
int32_t getVersion(const char** out);

/// Null clears the callback.
void setNativeLogCallback(void (*callback)(const char* message, int color, int length));

} // namespace velk::capi::common
