// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/Telemetry.h"

#include "tests/support/CapturedLog.h"
#include "velk_capi/detail/VelkTelemetry.h"
#include "velk_telemetry/win/TelemetrySender.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gmock/gmock.h>
#include <optional>
#include <thread>

#if !defined(_WIN32)
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <string>
#include <string_view>
#include <utility>

namespace
{

using namespace velk::telemetry;
namespace log = velk::common::log;

constexpr const char* kUse = "brenna_velk_feature_used_event";
constexpr const char* kCount = "handgrab_count";
constexpr std::string_view kSenderTag = "VELK:TelemetrySender:4 ";

/// What a pass prints, the lines sorted and without tag and identifier.
std::string sent(velk::test::CapturedLog& captured)
{
    std::ranges::sort(captured.lines);
    std::string all;
    for (std::string& line : std::exchange(captured.lines, {})) {
        line = line.substr(0, line.find(" : ", line.find("guid")));
        all += line.substr(line.starts_with(kSenderTag) ? kSenderTag.size() : 0) + ", ";
    }
    return all;
}

TEST(TelemetrySender, PrintsEveryTypeOfADirtyEventAndResetsIt)
{
    TelemetryCache cache;
    cache.addEventToAllowList("event");
    cache.setValue("event", "int", -3);
    cache.setValue("event", "float", 0.1F);
    cache.setValue("event", "double", 0.25);
    cache.setValue("event", "string", std::string("text"));
    cache.setValue("event", "yes", true);
    cache.setValue("event", "no", false);
    const TelemetrySender sender(cache, 10.0F);
    velk::test::CapturedLog captured(log::kInfo);
    EXPECT_EQ(sender.send(), 1);
    EXPECT_EQ(sender.send(), 2);
    EXPECT_EQ(sent(captured),
              "Sending Event: event, double : 0.250000, finalizeEvent, float : 0.100000, int : -3, "
              "no : False, string : text, yes : True, ");
}

TEST(TelemetrySender, ThreadPassesWhileTheHostCounts)
{
    std::atomic<int> lines = 0;
    log::setLoggingFunction([&lines](int, const char*, const char*) { ++lines; });
    TelemetryCache cache;
    cache.addEventToAllowList("event");
    {
        TelemetrySender sender(cache, 0.9F); // no whole second: no pause
        EXPECT_TRUE(sender.startSendingThread());
        while (lines < 60) {
            cache.incrementValue("event", "count");
        }
    }
    log::resetLoggingFunction();
}

#if !defined(_WIN32)

TEST(TelemetrySender, ThreadLeavesTheHostItsSignals)
{
    TelemetryCache cache;
    TelemetrySender sender(cache, 0.0F);
    sender.startSendingThread();
    sigset_t usr1;
    sigemptyset(&usr1);
    sigaddset(&usr1, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &usr1, nullptr);
    kill(getpid(), SIGUSR1); // ends the process if any thread takes it
    int received = 0;
    sigwait(&usr1, &received);
    EXPECT_EQ(received, SIGUSR1);
    pthread_sigmask(SIG_UNBLOCK, &usr1, nullptr);
}

TEST(TelemetrySender, ForkedChildrenCountAndEnd)
{
    const velk::test::CapturedLog silent(log::kError);
    TelemetryCache cache;
    cache.addEventToAllowList("event");
    std::optional<TelemetrySender> sender(std::in_place, cache, 0.0F);
    sender->startSendingThread();
    // Holds the mutex most of the time, so that most forks meet it held.
    const std::jthread counting([&cache](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            cache.incrementValue("event", "count");
        }
    });
    int status = 0;
    for (int child = 0; child < 100 && status == 0; ++child) {
        const pid_t process = fork();
        if (process == 0) {
            alarm(10); // ends a child that hangs
            cache.incrementValue("event", "count");
            sender.reset();
            _exit(0);
        }
        waitpid(process, &status, 0);
    }
    EXPECT_EQ(status, 0);
}

#endif

TEST(Telemetry, PassReportsTheWholeEventsThatCountedAndResetsThem)
{
    disableSendingThread();
    velk::test::CapturedLog captured(log::kDebug);
    EXPECT_EQ(incrementValue("other", "count"), UpdateValueResult::EventNotAllowed);
    incrementValue("brenna_velk_initialized_event", "hand_filter_oneeuro");
    captured.lines.clear();
    EXPECT_EQ(velk::capi::telemetry::sendTestData(), 0);
    EXPECT_EQ(sent(captured),
              "VELK:Telemetry:3 incrementing event field, event: brenna_velk_feature_used_event, "
              "field: handgrab_count, "
              "VELK:VelkTelemetry:3 incrementValue event: brenna_velk_feature_used_event, "
              "feature: handgrab_count, result: 2, ");
    int count = 0;
    EXPECT_EQ(getValue(kUse, kCount, count), AccessValueResult::Read);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(send(), 1);
    EXPECT_EQ(sent(captured),
              "Sending Event: brenna_velk_feature_used_essential_event, "
              "Sending Event: brenna_velk_feature_used_event, "
              "Sending Event: brenna_velk_initialized_essential_event, "
              "Sending Event: brenna_velk_initialized_event, app_velk_guid, app_velk_guid, app_velk_guid, "
              "app_velk_guid, finalizeEvent, finalizeEvent, finalizeEvent, finalizeEvent, "
              "game_engine_version : Unknown, game_engine_version : Unknown, gesturedetect_count : 0, "
              "gesturedetect_flag : False, grab_count : 0, grab_flag : False, hand_filter_lkg : 0, "
              "hand_filter_lkg_flag : False, hand_filter_oneeuro : 1, hand_filter_oneeuro_flag : True, "
              "handgrab_count : 1, handgrab_flag : True, poke_count : 0, poke_flag : False, "
              "pokelimit_count : 0, pokelimit_flag : False, posedetect_count : 0, posedetect_flag : False, "
              "ray_count : 0, ray_flag : False, talplugin_version : Unknown, talplugin_version : Unknown, "
              "velk_version : 0.52.0, velk_version : 0.52.0, ");
    getValue(kUse, kCount, count);
    EXPECT_EQ(count, 0);
}

// In a process of its own, whose exit waits for the sleeping thread: up to 10 s.
TEST(TelemetryDeathTest, ThreadStartsOnceAndExitWaitsForIt)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto countAndExit = [] {
        for (int i = 0; i < 100'000; ++i) {
            velk::capi::telemetry::sendTestData();
        }
        std::exit(0);
    };
    // The first pass may find some of the counts, all or none.
    EXPECT_EXIT(
        countAndExit(), testing::ExitedWithCode(0),
        testing::MatchesRegex("\\[VELK:Telemetry:I\\] Attempting to initialize telemetry sender\\.\\.\\.\n"
                              "\\[VELK:Telemetry:I\\] Telemetry sender initialization result: SUCCESS\n"
                              "\\[VELK:Telemetry:I\\] Starting sending thread, result: SUCCESS\n"
                              "(\\[VELK:TelemetrySender:I\\] (Sending Event: [a-z_]+|[a-z_]+ : "
                              "[a-zA-Z0-9]+|finalizeEvent)\n)*"));
}

} // namespace
