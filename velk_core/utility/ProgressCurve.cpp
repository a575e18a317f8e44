// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/utility/ProgressCurve.h"

#include <algorithm>
#include <utility>

namespace velk::utility
{

namespace
{

// Not the kernel's clamp, which turns a NaN into 1: this one lets it through.
float smoothstep(float t)
{
    t = std::clamp(t, 0.0f, 1.0f);
    return t * t * (3.0f - 2.0f * t);
}

} // namespace

ProgressCurve::ProgressCurve(float duration, core::TimeProvider& timeProvider)
    : ProgressCurve(smoothstep, duration, timeProvider)
{
}

ProgressCurve::ProgressCurve(std::function<float(float)> easingFunction, float duration,
                             core::TimeProvider& timeProvider)
    : easingFunction_(std::move(easingFunction))
    , duration_(duration)
    , timeProvider_(timeProvider)
{
}

void ProgressCurve::start()
{
    startTime_ = timeProvider_->reading();
}

void ProgressCurve::end()
{
    startTime_ = timeProvider_->readingBefore(duration_);
}

float ProgressCurve::progress()
{
    float x = static_cast<float>(timeProvider_->reading() - startTime_) / duration_;
    // Not a clamp: a clock before the start reads as finished, and a NaN goes on to the easing.
    if (0.0f > x || x >= 1.0f) {
        x = 1.0f;
    }
    return easingFunction_(x);
}

} // namespace velk::utility
