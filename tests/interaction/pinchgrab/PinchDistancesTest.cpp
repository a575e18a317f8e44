// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/pinchgrab/PinchDistances.h"
#include "tests/support/RandomHands.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"

#include <gtest/gtest.h>

using namespace velk::interaction::grab;
using enum HandJointId;
using velk::test::isSame;

TEST(PinchDistances, SideBySideAreThoseOfFingerAfterFinger)
{
    constexpr float kAlignmentLimit = 0.5f;
    velk::test::RandomHands hands(2);
    FingerPinchGrabAPI pinch;
    for (int i = 0; i < 20000; ++i) {
        const velk::data::HandPinchData hand = hands.makePositions();
        pinch.update(&hand, nullptr, nullptr);
        const TipDistances tips(hand);
        for (std::size_t finger = 0; finger < TipDistances::kCount; ++finger) {
            const velk::Vector3f tip = hand.jointPositions[toIndex(
                HandJointUtils::getHandFingerTip(static_cast<HandFinger>(finger + 1)))];
            ASSERT_EQ(tips.isNearThumb[finger], pinch.IsPointNearThumb(tip, {ThumbDistal, ThumbTip})) << i;
            ASSERT_PRED2(isSame, tips.toLastBone[finger],
                         pinch.GetClosestDistanceToThumb(tip, {ThumbDistal, ThumbTip}))
                << i;
            ASSERT_PRED2(isSame, tips.toBothBones[finger],
                         pinch.GetClosestDistanceToThumb(tip, {ThumbProximal, ThumbDistal, ThumbTip}))
                << i;
        }
        for (const float limit : {kAlignmentLimit, 1.0f}) {
            ASSERT_PRED2(isSame, measureThumbToIndex(hand, limit),
                         pinch.getClosestDistanceToJoints(hand.jointPositions[toIndex(ThumbDistal)],
                                                          hand.jointPositions[toIndex(ThumbTip)],
                                                          {IndexProximal, IndexMid, IndexDistal, IndexTip},
                                                          limit))
                << i;
        }
    }
}
