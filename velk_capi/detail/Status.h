// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace velk::capi
{
inline constexpr int32_t kSuccess = 0;
inline constexpr int32_t kFailure = -1;
} // namespace velk::capi
