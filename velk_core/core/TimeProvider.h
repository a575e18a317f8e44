// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <mutex>
#include <type_traits>
#include <utility>

namespace velk::core
{

/// A clock in seconds; only differences mean anything. All that measures time in the library asks a provider,
/// so that time can be driven by hand. A clock may be asked from any thread; the callable must not ask its
/// own provider.
class TimeProvider
{
public:
    template <typename TimeFunction>
    explicit TimeProvider(TimeFunction timeFunction)
        : timeFunction_(std::move(timeFunction))
        , readsFloats_(std::is_same_v<std::remove_cvref_t<std::invoke_result_t<TimeFunction&>>, float>)
    {
    }
    TimeProvider(const TimeProvider&) = delete;
    TimeProvider& operator=(const TimeProvider&) = delete;

    float now() { return static_cast<float>(reading()); }

    /// What the callable reads, unrounded: a float of a year's seconds has a resolution of 2 seconds.
    double reading();

    /// The reading of `seconds` ago, rounded as this clock's readings are.
    double readingBefore(float seconds)
    {
        const double before = reading() - static_cast<double>(seconds);
        return readsFloats_ ? static_cast<double>(static_cast<float>(before)) : before;
    }

    /// The library's own clock: a steady one that counts from the library's load.
    static TimeProvider& defaultTimeProvider();

private:
    std::function<double()> timeFunction_;
    bool readsFloats_;
    std::mutex mutex_;
};

} // namespace velk::core
