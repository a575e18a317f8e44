// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <mutex>
#include <utility>

namespace velk::core
{

/// A clock in float seconds; only differences mean anything. All that measures time in the library asks a
/// provider, so that time can be driven by hand. `now()` may be called from any thread; the callable must not
/// call `now()` on its own provider.
class TimeProvider
{
public:
    template <typename TimeFunction>
    explicit TimeProvider(TimeFunction timeFunction)
        : timeFunction_(std::move(timeFunction))
    {
    }
    TimeProvider(const TimeProvider&) = delete;
    TimeProvider& operator=(const TimeProvider&) = delete;

    float now();

    /// The library's own clock: a steady one that counts from the library's load.
    static TimeProvider& defaultTimeProvider();

private:
    std::function<float()> timeFunction_;
    std::mutex mutex_;
};

} // namespace velk::core
