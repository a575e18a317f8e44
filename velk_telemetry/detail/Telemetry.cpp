// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/Telemetry.h"

#include "velk_common/VelkLog.h"
#include "velk_common/Version.h"
#include "velk_telemetry/detail/GenerateGuid.h"
#include "velk_telemetry/detail/TelemetryCache.h"
#include "velk_telemetry/win/TelemetrySender.h"

#include <memory>
#include <unordered_map>
#include <variant>
#include <vector>

namespace velk::telemetry
{
namespace
{

namespace log = velk::common::log;

constexpr const char* kSource = "velk_telemetry/detail/Telemetry.cpp";
constexpr float kTelemetrySendInterval = 10.0F; // seconds

constexpr int kInitialized = 1;
constexpr int kStartFailed = -1;
constexpr int kNotInitialized = -2;
constexpr int kSendDisabled = -6;
constexpr int kCacheCleared = 1;

// The order counts at exit: the sender goes before the cache, and its destructor joins the thread that reads
// it.
TelemetryCache telemetryCache;
std::unique_ptr<TelemetrySender> telemetrySender;
std::string guid;                         // empty until initialised
constinit bool telemetryDisabled = false; // nothing sets it yet
constinit bool sendingThreadDisabled = false;
[[maybe_unused]] std::unordered_map<std::string, int> initEventValueCounts; // nothing fills it yet

/// A field of a main event beside its field in the duplex event, with their defaults.
struct FieldPair
{
    std::string field;
    Value defaultValue;
    std::string duplexField;
    Value duplexDefaultValue;
};

FieldPair sharedText(const char* field, const std::string& value)
{
    return {field, value, field, value};
}

FieldPair countAndFlag(const char* count, const char* flag)
{
    return {count, 0, flag, false};
}

void setDefault(const std::string& event, const std::string& field, const Value& value)
{
    std::visit([&](const auto& typed) { telemetryCache.setDefaultValue(event, field, typed); }, value);
}

void setupEvent(const std::string& event, const std::string& duplexEvent, const std::vector<FieldPair>& pairs)
{
    telemetryCache.addEventToAllowList(event);
    telemetryCache.declareDuplexEvent(event, duplexEvent);
    for (const FieldPair& pair : pairs) {
        setDefault(event, pair.field, pair.defaultValue);
    }
    for (const FieldPair& pair : pairs) {
        setDefault(duplexEvent, pair.duplexField, pair.duplexDefaultValue);
    }
    for (const FieldPair& pair : pairs) {
        telemetryCache.declareDuplexField(event, pair.field, pair.duplexField);
    }
    telemetryCache.initializeEvent(event);
}

void setupTelemetryCache()
{
    guid = generateGuidString();
    setupEvent("brenna_velk_initialized_event", "brenna_velk_initialized_essential_event",
               {
                   sharedText("app_velk_guid", guid),
                   sharedText("game_engine_version", "Unknown"),
                   sharedText("velk_version", velk::common::getPackageVersion()),
                   sharedText("talplugin_version", "Unknown"),
                   countAndFlag("hand_filter_oneeuro", "hand_filter_oneeuro_flag"),
                   countAndFlag("hand_filter_lkg", "hand_filter_lkg_flag"),
               });
    setupEvent("brenna_velk_feature_used_event", "brenna_velk_feature_used_essential_event",
               {
                   sharedText("app_velk_guid", guid),
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

int startSender()
{
    log::logWithTag(log::kInfo, log::kTag, kSource, "Attempting to initialize telemetry sender...");
    telemetrySender = std::make_unique<TelemetrySender>(telemetryCache, kTelemetrySendInterval);
    log::logWithTag(log::kInfo, log::kTag, kSource, "Telemetry sender initialization result: %s",
                    outcome(telemetrySender != nullptr));

    if (sendingThreadDisabled) {
        return kInitialized;
    }
    // A start that fails is reported once: from now on the guid says that telemetry is initialised.
    const bool started = telemetrySender && telemetrySender->startSendingThread();
    log::logWithTag(log::kInfo, log::kTag, kSource, "Starting sending thread, result: %s", outcome(started));
    return started ? kInitialized : kStartFailed;
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
        return startSender();
    } catch (...) {
        guid.clear(); // the next use begins anew
        telemetrySender.reset();
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
    return telemetryCache.getValue(event, field, out);
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
    if (!telemetryCache.isEventOnAllowList(event)) {
        return UpdateValueResult::EventNotAllowed;
    }
    log::logWithTag(log::kDebug, log::kTag, kSource, "incrementing event field, event: %s, field: %s",
                    event.c_str(), field.c_str());
    return telemetryCache.incrementValue(event, field);
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
    return telemetryDisabled ? kSendDisabled : telemetrySender->send();
}

int clearCache()
{
    telemetryCache.resetToDefaultValues();
    return kCacheCleared;
}

void disableSendingThread()
{
    sendingThreadDisabled = true;
}

bool isInitialized()
{
    return !guid.empty();
}

} // namespace velk::telemetry
