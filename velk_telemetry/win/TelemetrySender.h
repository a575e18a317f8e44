// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "velk_telemetry/detail/TelemetryCache.h"

#include <memory>
#include <thread>

namespace velk::telemetry
{

/// Reports the dirty events of a cache to the log, once or at an interval on a thread of its own. Nothing
/// leaves the process. There is one sender with a thread in the process: all share one signal to stop.
class TelemetrySender
{
public:
    /// The interval is in seconds, of which the thread drops the fraction.
    TelemetrySender(TelemetryCache& cache, float sendInterval);

    /// Joins the thread, which ends only when its sleep does: this takes up to one interval. In a child made
    /// by fork, which has no such thread, it does nothing.
    ~TelemetrySender();

    TelemetrySender(const TelemetrySender&) = delete;
    TelemetrySender& operator=(const TelemetrySender&) = delete;

    /// Moves the contents of the other's cache into this one's. Neither may have a thread that runs.
    TelemetrySender& operator=(TelemetrySender&& other) noexcept;

    /// Makes the first pass at once, the others an interval apart. The thread takes no signals but faults,
    /// and leaves out a pass for which there is no memory. Throws std::system_error if no thread can be had.
    bool startSendingThread();

    /// One pass: prints the dirty events and resets them, whatever the outcome. Returns 1 when at least one
    /// was processed, else 2. An increment that arrives between the two is lost.
    int send() const;

private:
    TelemetryCache& cache_;
    float sendInterval_;                        // seconds
    [[maybe_unused]] float configuredInterval_; // seconds; the interval as first given, read by nobody
    std::unique_ptr<std::thread> sendingThread_;
    int process_ = 0; // the one that has the thread
};

} // namespace velk::telemetry
