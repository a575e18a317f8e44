// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Stands in for the library's clock at link time: what a run observes then depends on its input alone.
#include "velk_core/core/TimeProvider.h"

namespace velk_fuzz
{
float manualSeconds = 0;
} // namespace velk_fuzz

namespace velk::core
{

double TimeProvider::reading()
{
    return timeFunction_();
}

TimeProvider& TimeProvider::defaultTimeProvider()
{
    static TimeProvider provider{[] { return velk_fuzz::manualSeconds; }};
    return provider;
}

} // namespace velk::core
