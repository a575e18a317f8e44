// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdint>

namespace velk::capi::common
{

int32_t getVersion(const char** out);
void setNativeLogCallback(void (*callback)(const char* message, int color, int length));

} // namespace velk::capi::common
