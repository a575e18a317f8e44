// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandJointId.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"

namespace velk::interaction::grab
{

/// The pinch of one finger.
struct FingerPinchData
{
    explicit FingerPinchData(HandFinger finger);

    void UpdateTipPosition(const Vector3f& position) { tipPosition = position; }
    HandJointId GetTipID() const { return tipId; }

    /// Clears the change flag and nothing else.
    void ClearState() { isPinchingChanged = false; }

    /// Starts a pinch below `start`; ends it above `stopMax`, or when the distance has grown by more than
    /// `stopOffset` over the least one of this pinch.
    void UpdateIsPinching(float distance, float start, float stopOffset, float stopMax);

    float pinchStrength = 0.0f;
    bool isPinching = false;
    Vector3f tipPosition;
    bool isPinchingChanged = false;
    HandJointId tipId;
    float minPinchDistance = PositiveInfinity;
};

} // namespace velk::interaction::grab
