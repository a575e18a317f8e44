// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/utility/ProgressCurve.h"

namespace velk::interaction
{

/// The touch point of a press, steadied: it holds still while the finger pushes in, follows a drag, sticks to
/// where the press began if that is asked for, and eases instead of jumping.
///
/// All points are in the frame of the backing surface, so that they ride on it when it moves.
class PokeTouchPoint
{
public:
    PokeTouchPoint();

    /// A press begins. `touchPoint` and `contact`, the nearest point to the finger, are in world space.
    ///
    /// The progress of the last easing is kept: a curve that reads as unfinished before any drag has started
    /// goes on from there.
    void begin(const Posef& surfacePose, const Vector3f& touchPoint, const Vector3f& contact,
               const utility::ProgressCurve& dragEaseCurve);

    /// One frame of a press or a recoil. `normalDelta` is how much deeper or less deep the finger is than in
    /// the last frame, in metres and not negative.
    void follow(const Posef& surfacePose, const Vector3f& contact, float normalDelta,
                const PokeInteractable::Config& config);

    const Vector3f& getLocalPoint() const { return easedLocalPoint_; }

private:
    void updateTarget(const Posef& surfacePose, const Vector3f& localPoint, float normalDelta,
                      const PokeInteractable::DragThresholdingConfig& thresholds);
    Vector3f pinTarget(const Posef& surfacePose, const PokeInteractable::PositionPinningConfig& pinning);
    void easeTowards(const Vector3f& localPoint);

    Vector3f previousLocalPoint_; // under the finger in the last frame
    Vector3f pressLocalPoint_;    // under the finger when it last pushed in
    Vector3f targetLocalPoint_;   // where the touch point is to go
    Vector3f pinnedLocalPoint_;   // the touch point when the press began
    Vector3f easedLocalPoint_;    // where it is
    bool dragging_ = false;
    float maxPinTravel_ = 0.0f; // farthest travel from the pinned point in this press, in metres
    utility::ProgressCurve dragEaseCurve_;
    float lastEaseProgress_ = 0.0f;
};

} // namespace velk::interaction
