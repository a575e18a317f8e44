// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandPalmData.h"
#include "velk_core/interaction/palmgrab/FingerGrabData.h"
#include "velk_core/interaction/palmgrab/FingerShapes.h"

#include <vector>

namespace velk::interaction::grab
{

/// Decides per finger whether it is closed as in a fist, from the finger's shape alone. A finger that doesn't
/// exist reads as not grabbing, with score 0.
class FingerPalmGrabAPI
{
public:
    FingerPalmGrabAPI();

    /// One frame. With a null record only the change flags are cleared.
    void Update(const data::HandPalmData* data);

    bool GetFingerIsGrabbing(HandFinger finger) const;

    /// True from the update in which the finger came to `targetGrabState` until the next one.
    bool GetFingerIsGrabbingChanged(HandFinger finger, bool targetGrabState) const;

    /// 0 (open) to 1 (closed).
    float GetFingerGrabScore(HandFinger finger) const;

    /// The point in the palm, in the root's space: a constant of the side. Zero before the first update.
    Vector3f GetCenterOffset();

private:
    const FingerGrabData* find(HandFinger finger) const;
    void ClearState();
    void UpdateVolumeCenter(const data::HandPalmData* data);

    // Metres.
    Vector3f centerOffsetHandednessSet_{0.07f, -0.03f, 0.0f};
    Vector3f centerOffsetHandednessClear_{-0.07f, 0.03f, 0.0f};
    // Strengths, 0 to 1.
    float grabThreshold_ = 0.9f;
    float releaseThreshold_ = 0.6f;
    std::vector<FingerGrabData> fingers_;
    Vector3f centerOffset_;
};

} // namespace velk::interaction::grab
