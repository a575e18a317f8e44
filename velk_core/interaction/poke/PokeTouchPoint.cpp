// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeTouchPoint.h"

#include "math/Math.h"
#include "velk_core/core/TimeProvider.h"

#include <algorithm>

namespace velk::interaction
{

namespace
{

// Seconds. Each press brings the curve of its interactable; this one is never started.
constexpr float kInitialEaseDuration = 1.0f;

} // namespace

PokeTouchPoint::PokeTouchPoint()
    : dragEaseCurve_(kInitialEaseDuration, core::TimeProvider::defaultTimeProvider())
{
}

void PokeTouchPoint::begin(const Posef& surfacePose, const Vector3f& touchPoint, const Vector3f& contact,
                           const utility::ProgressCurve& dragEaseCurve)
{
    const Vector3f local = surfacePose.InverseTransform(touchPoint);
    targetLocalPoint_ = local;
    easedLocalPoint_ = local;
    pinnedLocalPoint_ = local;
    previousLocalPoint_ = local;
    pressLocalPoint_ = surfacePose.InverseTransform(contact);
    dragEaseCurve_ = dragEaseCurve;
    dragging_ = false;
    maxPinTravel_ = 0.0f;
}

void PokeTouchPoint::follow(const Posef& surfacePose, const Vector3f& contact, float normalDelta,
                            const PokeInteractable::Config& config)
{
    const Vector3f localPoint = surfacePose.InverseTransform(contact);
    updateTarget(surfacePose, localPoint, normalDelta, config.dragThresholds);
    easeTowards(pinTarget(surfacePose, config.positionPinning));
    previousLocalPoint_ = localPoint;
}

// Drag thresholding. The target follows the finger only while it drags. It pushes when its movement in this
// frame is mainly into or out of the surface, and large enough.
//
//   dragging   pushing   slid beyond dragTangent   then
//   no         yes       -                         target stays, the slide counts from here
//   no         no        no                        target stays
//   no         no        yes                       a drag starts: target follows, the easing starts
//   yes        no        -                         target follows
//   yes        yes       -                         the drag is interrupted: as the first row
void PokeTouchPoint::updateTarget(const Posef& surfacePose, const Vector3f& localPoint, float normalDelta,
                                  const PokeInteractable::DragThresholdingConfig& thresholds)
{
    if (!thresholds.enabled) {
        targetLocalPoint_ = localPoint;
        return;
    }
    const float tangentDelta = surfacePose.Rotate(localPoint - previousLocalPoint_).Length();
    if (tangentDelta < normalDelta && thresholds.dragNormal < normalDelta) {
        pressLocalPoint_ = localPoint;
        dragging_ = false;
        return;
    }
    if (!dragging_ && surfacePose.Rotate(localPoint - pressLocalPoint_).Length() > thresholds.dragTangent) {
        dragging_ = true;
        dragEaseCurve_.start();
        lastEaseProgress_ = 0.0f;
    }
    if (dragging_) {
        targetLocalPoint_ = localPoint;
    }
}

// Pinning: the touch point starts out stuck where the press began and is let go by the farthest travel so
// far. It is never stuck more again in the same press.
Vector3f PokeTouchPoint::pinTarget(const Posef& surfacePose,
                                   const PokeInteractable::PositionPinningConfig& pinning)
{
    if (!pinning.enabled) {
        return targetLocalPoint_;
    }
    const Vector3f offset = targetLocalPoint_ - pinnedLocalPoint_;
    maxPinTravel_ = std::max(maxPinTravel_, surfacePose.Rotate(offset).Length());
    float factor = 1.0f;
    if (pinning.maxPinDistance != 0.0f) {
        factor = clamp(maxPinTravel_ / pinning.maxPinDistance, 0.0f, 1.0f);
    }
    return pinnedLocalPoint_ + offset * factor;
}

// Goes the share of the remaining way that the curve has gone since the last frame. A curve that no drag has
// started reads as finished once the clock has passed its duration.
void PokeTouchPoint::easeTowards(const Vector3f& localPoint)
{
    const float progress = dragEaseCurve_.progress();
    if (progress == 1.0f) {
        easedLocalPoint_ = localPoint;
        return;
    }
    const float share = (progress - lastEaseProgress_) / (1.0f - lastEaseProgress_);
    easedLocalPoint_ += (localPoint - easedLocalPoint_) * share;
    lastEaseProgress_ = progress;
}

} // namespace velk::interaction
