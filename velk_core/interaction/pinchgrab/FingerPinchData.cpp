// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/pinchgrab/FingerPinchData.h"

#include "velk_core/interaction/palmgrab/HandJointUtils.h"

#include <algorithm>

namespace velk::interaction::grab
{

FingerPinchData::FingerPinchData(HandFinger finger)
    : tipId(HandJointUtils::getHandFingerTip(finger))
{
}

void FingerPinchData::UpdateIsPinching(float distance, float start, float stopOffset, float stopMax)
{
    if (isPinching) {
        minPinchDistance = std::min(minPinchDistance, distance);
        if (distance > stopMax || distance > minPinchDistance + stopOffset) {
            isPinching = false;
            isPinchingChanged = true;
            minPinchDistance = PositiveInfinity;
        }
    } else if (distance < start) {
        isPinching = true;
        isPinchingChanged = true;
        minPinchDistance = distance;
    }
}

} // namespace velk::interaction::grab
