// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/Telemetry.h"

#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkLog.h"
#include "velk_common/Version.h"
#include "velk_telemetry/detail/GenerateGuid.h"
#include "velk_telemetry/detail/TelemetryCache.h"
#include "velk_telemetry/win/TelemetrySender.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <vector>

namespace velk::telemetry
{
namespace
{

namespace log = velk::common::log;

constexpr const char* kSource = "velk_telemetry/detail/Telemetry.cpp";
constexpr float kTelemetrySendInterval = 10.0F; // seconds

constexpr int kInitialized = 1;
constexpr int kNotInitialized = -2;
constexpr int kSendDisabled = -6;
constexpr int kCacheCleared = 1;

constinit bool initialized = false;
constinit bool sendingThreadDisabled = false;
constinit std::atomic<bool> telemetryDisabled = false;             // by exit or unload
constinit std::atomic<TelemetrySender*> telemetrySender = nullptr; // once all is set up

TelemetryCache& telemetryCache()
{
    static common::NeverDestroyed<TelemetryCache> cache;
    return *cache;
}

/// Ends counting and waits for the thread. Another thread of the host may be in the middle of a count: it
/// finds tables without events.
void endCounting()
{
    telemetryDisabled = true;
    std::unique_ptr<TelemetrySender> sender(telemetrySender.exchange(nullptr));
    if (sender != nullptr) {
        sender.reset();
        telemetryCache().drop();
    }
}

// As the library is loaded, so that what the host registers later, and runs earlier, can still count.
[[maybe_unused]] const int exitHandler = std::atexit(endCounting);

/// A field of a main event beside its field in the duplex event.
struct FieldPair
{
    const char* field;
    const char* duplexField;
    const char* text; // of both; null for a count and its flag
};

FieldPair sharedText(const char* field, const char* value)
{
    return {field, field, value};
}

FieldPair countAndFlag(const char* count, const char* flag)
{
    return {count, flag, nullptr};
}

template <typename Number>
void setDefault(const std::string& event, const char* field, const char* text, Number number)
{
    if (text != nullptr) {
        telemetryCache().setDefaultValue(event, field, std::string(text));
    } else {
        telemetryCache().setDefaultValue(event, field, number);
    }
}

void setupEvent(const std::string& event, const std::string& duplexEvent, const std::vector<FieldPair>& pairs)
{
    telemetryCache().addEventToAllowList(event);
    telemetryCache().declareDuplexEvent(event, duplexEvent);
    for (const FieldPair& pair : pairs) {
        setDefault(event, pair.field, pair.text, 0);
    }
    for (const FieldPair& pair : pairs) {
        setDefault(duplexEvent, pair.duplexField, pair.text, false);
    }
    for (const FieldPair& pair : pairs) {
        telemetryCache().declareDuplexField(event, pair.field, pair.duplexField);
    }
    telemetryCache().initializeEvent(event);
}

void setupTelemetryCache()
{
    const std::string guid = generateGuidString();
    setupEvent("brenna_velk_initialized_event", "brenna_velk_initialized_essential_event",
               {
                   sharedText("app_velk_guid", guid.c_str()),
                   sharedText("game_engine_version", "Unknown"),
                   sharedText("velk_version", velk::common::getPackageVersion()),
                   sharedText("talplugin_version", "Unknown"),
                   countAndFlag("hand_filter_oneeuro", "hand_filter_oneeuro_flag"),
                   countAndFlag("hand_filter_lkg", "hand_filter_lkg_flag"),
               });
    setupEvent("brenna_velk_feature_used_event", "brenna_velk_feature_used_essential_event",
               {
                   sharedText("app_velk_guid", guid.c_str()),
                   countAndFlag("grab_count", "grab_flag"),
                   countAndFlag("handgrab_count", "handgrab_flag"),
                   countAndFlag("poke_count", "poke_flag"),
                   countAndFlag("pokelimit_count", "pokelimit_flag"),
                   countAndFlag("ray_count", "ray_flag"),
                   countAndFlag("posedetect_count", "posedetect_flag"),
                   countAndFlag("gesturedetect_count", "gesturedetect_flag"),
               });
}

const char* outcome(bool success)
{
    return success ? "SUCCESS" : "FAILED";
}

void startSender()
{
    log::logWithTag(log::kInfo, log::kTag, kSource, "Attempting to initialize telemetry sender...");
    auto sender = std::make_unique<TelemetrySender>(telemetryCache(), kTelemetrySendInterval);
    log::logWithTag(log::kInfo, log::kTag, kSource, "Telemetry sender initialization result: %s",
                    outcome(sender != nullptr));

    if (!sendingThreadDisabled) {
        const bool started = sender->startSendingThread();
        log::logWithTag(log::kInfo, log::kTag, kSource, "Starting sending thread, result: %s",
                        outcome(started));
    }
    telemetrySender = sender.release();
}

int initializeTelemetry()
{
    if (telemetryDisabled) {
        return kNotInitialized;
    }
    if (isInitialized()) {
        return kInitialized;
    }

    try {
        setupTelemetryCache();
        initialized = true; // before what is logged, in answer to which the host may count
        startSender();
        return kInitialized;
    } catch (...) {
        initialized = false; // the next use begins anew
        throw;
    }
}

template <typename T>
AccessValueResult getValueAs(const std::string& event, const std::string& field, T& out)
{
    if (telemetryDisabled) {
        return AccessValueResult::Disabled;
    }
    if (initializeTelemetry() != kInitialized) {
        return AccessValueResult::NotInitialized;
    }
    return telemetryCache().getValue(event, field, out);
}

} // namespace

UpdateValueResult incrementValue(const std::string& event, const std::string& field)
{
    if (telemetryDisabled) {
        return UpdateValueResult::Disabled;
    }
    if (initializeTelemetry() != kInitialized) {
        return UpdateValueResult::NotInitialized;
    }
    if (!telemetryCache().isEventOnAllowList(event)) {
        return UpdateValueResult::EventNotAllowed;
    }
    log::logWithTag(log::kDebug, log::kTag, kSource, "incrementing event field, event: %s, field: %s",
                    event.c_str(), field.c_str());
    return telemetryCache().incrementValue(event, field);
}

AccessValueResult getValue(const std::string& event, const std::string& field, int& out)
{
    return getValueAs(event, field, out);
}

AccessValueResult getValue(const std::string& event, const std::string& field, bool& out)
{
    return getValueAs(event, field, out);
}

int send()
{
    return telemetryDisabled ? kSendDisabled : telemetrySender.load()->send();
}

int clearCache()
{
    telemetryCache().resetToDefaultValues();
    return kCacheCleared;
}

void disableSendingThread()
{
    sendingThreadDisabled = true;
}

bool isInitialized()
{
    return initialized;
}

} // namespace velk::telemetry
