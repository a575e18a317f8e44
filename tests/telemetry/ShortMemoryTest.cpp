// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_common/VelkLog.h"
#include "velk_telemetry/win/TelemetrySender.h"

#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <string_view>
#include <thread>

namespace
{

const std::thread::id hostThread = std::this_thread::get_id();
std::atomic<bool> otherThreadsHaveNone = false;
std::atomic<int> failures = 0;

} // namespace

[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (otherThreadsHaveNone && std::this_thread::get_id() != hostThread) {
        ++failures;
        throw std::bad_alloc();
    }
    void* const block = std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

TEST(TelemetrySender, ThreadLeavesOutPassesWithoutMemory)
{
    using namespace velk::telemetry;
    namespace log = velk::common::log;

    static std::atomic<int> counts = 0;
    log::setLoggingFunction([](int, const char*, const char* message) {
        constexpr std::string_view kCount = "count : ";
        if (std::string_view(message).starts_with(kCount)) {
            counts += std::atoi(message + kCount.size());
        }
    });
    TelemetryCache cache;
    cache.addEventToAllowList("event");
    cache.setDefaultValue("event", "count", 0);
    cache.setDefaultValue("event", "text", std::string("longer than what a string holds in place"));
    cache.initializeEvent("event");
    {
        TelemetrySender sender(cache, 0.9F); // no whole second: no pause
        sender.startSendingThread();
        otherThreadsHaveNone = true;
        cache.incrementValue("event", "count");
        while (failures < 10) {
        }
        otherThreadsHaveNone = false;
        while (counts == 0) {
        }
    }
    EXPECT_EQ(counts, 1);
    log::resetLoggingFunction();
}
