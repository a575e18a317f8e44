// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandPalmData.h"
#include "velk_core/interaction/palmgrab/FingerShapes.h"

namespace velk::interaction::grab
{

/// The palm grip of one finger.
struct FingerGrabData
{
    explicit FingerGrabData(HandFinger which);

    void UpdateGrabStrength(const data::HandPalmData* data, const FingerShapes& shapes);
    /// From the finger's two measures. The thumb's flexion plays no part.
    void UpdateGrabStrength(float curl, float flexion);

    /// Both thresholds are strict: a strength equal to one of them changes nothing.
    void UpdateIsGrabbing(float grabThreshold, float releaseThreshold);

    HandFinger finger;
    /// Degrees. x: where the strength leaves 0; y: length of the range up to strength 1.
    Vector2f curlNormalizationParams;
    float grabStrength = 0.0f;
    bool isGrabbing = false;
    bool isGrabbingChanged = false;
};

} // namespace velk::interaction::grab
