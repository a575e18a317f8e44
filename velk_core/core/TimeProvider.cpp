// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/core/TimeProvider.h"

#include "velk_common/NeverDestroyed.h"

#include <chrono>

namespace velk::core
{

namespace
{

// Time zero is the library's load: floating point has its best resolution near zero.
const std::chrono::steady_clock::time_point DEFAULT_TIME_PROVIDER_START_TIME =
    std::chrono::steady_clock::now();

double secondsSinceLoad()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - DEFAULT_TIME_PROVIDER_START_TIME)
        .count();
}

common::NeverDestroyed<TimeProvider> DEFAULT_TIME_PROVIDER{secondsSinceLoad};

} // namespace

double TimeProvider::reading()
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return timeFunction_();
}

TimeProvider& TimeProvider::defaultTimeProvider()
{
    return *DEFAULT_TIME_PROVIDER;
}

} // namespace velk::core
