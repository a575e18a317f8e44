// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/TimeProvider.h"
#include "velk_core/utility/AssignableRef.h"

#include <functional>

namespace velk::utility
{

/// Eased progress over a fixed time. There is no running flag: all follows from the start time and the clock.
/// A curve never started has the start time 0, so it reads as finished only once its clock has passed its
/// duration. A copy keeps the running state and the clock of its source.
class ProgressCurve
{
public:
    /// Eases with a smoothstep. Seconds; the provider must outlive the curve and its copies.
    ProgressCurve(float duration, core::TimeProvider& timeProvider);
    ProgressCurve(std::function<float(float)> easingFunction, float duration,
                  core::TimeProvider& timeProvider);

    /// Restarts from zero progress.
    void start();

    /// From now on the curve reads as finished.
    void end();

    /// The eased value: of 0 at the start, of 1 from the end on, and also of 1 while the clock reads earlier
    /// than the start. With a duration of 0, a NaN reaches the easing at the very instant of the start.
    float progress();

private:
    std::function<float(float)> easingFunction_;
    float duration_;
    double startTime_ = 0.0; // a float would be too coarse for a clock that has run for days
    AssignableRef<core::TimeProvider> timeProvider_;
};

} // namespace velk::utility
