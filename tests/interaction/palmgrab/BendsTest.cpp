// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/Bends.h"
#include "tests/support/RandomHands.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"

#include <gtest/gtest.h>

using namespace velk::interaction::grab;
using velk::test::isSame;

TEST(Bends, SideBySideAreThoseOfFingerAfterFinger)
{
    const FingerShapes shapes;
    velk::test::RandomHands hands(1);
    for (int i = 0; i < 20000; ++i) {
        const FingerShapes::JointPoses poses = hands.makePoses();
        const Bends bends(poses);
        for (const HandFinger finger : {HandFinger::Thumb, HandFinger::Index, HandFinger::Middle,
                                        HandFinger::Ring, HandFinger::Pinky}) {
            ASSERT_PRED2(isSame, bends.curl[toIndex(finger)], shapes.GetCurlValue(finger, poses)) << i;
            if (finger != HandFinger::Thumb) {
                ASSERT_PRED2(isSame, bends.flexion[toIndex(finger)], shapes.GetFlexionValue(finger, poses));
            }
        }
    }
}
