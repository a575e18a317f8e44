// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "velk_telemetry/detail/AccessValueResult.h"
#include "velk_telemetry/detail/UpdateValueResult.h"

#include <string>

/// Usage counters of the process. The first call of incrementValue or getValue sets up the fixed table of
/// events and starts the thread that reports to the log; a process that counts nothing starts no thread. Call
/// from the host's thread only.
namespace velk::telemetry
{

/// Adds 1 to a count of a main event and sets its flag in the duplex event.
UpdateValueResult incrementValue(const std::string& event, const std::string& field);

/// Reads what was counted since the last pass. Throws as TelemetryCache::getValue does.
AccessValueResult getValue(const std::string& event, const std::string& field, int& out);
AccessValueResult getValue(const std::string& event, const std::string& field, bool& out);

/// Makes a pass on the calling thread and returns its result, or -6 when telemetry is disabled. Telemetry
/// must have started.
int send();

/// Puts all fields on their defaults and returns 1.
int clearCache();

/// Keeps an initialisation that comes later from starting the thread; values then pile up.
void disableSendingThread();

/// Whether the first use has set up the table of events.
bool isInitialized();

} // namespace velk::telemetry
