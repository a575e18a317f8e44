// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_capi/detail/VelkTelemetry.h"

#include "velk_capi/detail/Status.h"
#include "velk_common/VelkLog.h"
#include "velk_telemetry/detail/Telemetry.h"

namespace velk::capi::telemetry
{
namespace
{

namespace log = velk::common::log;

constexpr const char* kSource = "velk_capi/detail/VelkTelemetry.cpp";
constexpr const char* kEvent = "brenna_velk_feature_used_event";
constexpr const char* kField = "handgrab_count";

} // namespace

int32_t sendTestData()
{
    const auto result = velk::telemetry::incrementValue(kEvent, kField);
    log::logWithTag(log::kDebug, log::kTag, kSource, "incrementValue event: %s, feature: %s, result: %i",
                    kEvent, kField, static_cast<int>(result));
    return velk::telemetry::IsSuccessfulUpdateResult(result) ? kSuccess : kFailure;
}

} // namespace velk::capi::telemetry
