// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/pinchgrab/FingerPinchData.h"

#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>

namespace velk::interaction::grab
{

FingerPinchData::FingerPinchData(HandFinger finger)
    : tipId(HandJointUtils::getHandFingerTip(finger))
{
}

void FingerPinchData::UpdateIsPinching(float distance, float start, float stopOffset, float stopMax)
{
    const auto judge = [this, distance](witness::Rule rule, bool holds, float limit) {
        return witness::judgeFinger(rule, holds, distance, limit, HandJointUtils::getFingerOfTip(tipId));
    };
    if (isPinching) {
        minPinchDistance = std::min(minPinchDistance, distance);
        const float farthest = minPinchDistance + stopOffset;
        if (judge(witness::Rule::PinchEnd, distance > stopMax, stopMax) ||
            judge(witness::Rule::PinchLetGo, distance > farthest, farthest)) {
            isPinching = false;
            isPinchingChanged = true;
            minPinchDistance = PositiveInfinity;
        }
    } else if (judge(witness::Rule::PinchStart, distance < start, start)) {
        isPinching = true;
        isPinchingChanged = true;
        minPinchDistance = distance;
    }
}

} // namespace velk::interaction::grab
