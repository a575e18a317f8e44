// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "math/Math.h"
#include "velk_core/interaction/palmgrab/FingerPalmGrabAPI.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/palmgrab/JointTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

using namespace velk::interaction::grab;
using enum HandFinger;
using velk::Posef;
using velk::Quatf;
using velk::Vector3f;
using velk::data::HandPalmData;

namespace
{

/// A hand whose fingers are bent by these degrees at their two inner joints, and turned at the knuckle.
HandPalmData handBentBy(float atMid, float atDistal, float atKnuckle)
{
    const float bends[] = {0.0f, atMid, atDistal, 0.0f};
    HandPalmData hand;
    for (const JointList& chain : joint_tables::CURL_ANGLE_JOINTS) {
        Vector3f end;
        float heading = 0.0f;
        for (std::size_t i = 0; i < 4; ++i) {
            const Vector3f turn(0.0f, 0.0f, -atKnuckle / TAL::kDegreesPerRadian);
            hand.jointPoses[toIndex(chain.joints()[i])] = {Quatf::FromRotationVector(turn), end};
            heading -= bends[i] / TAL::kDegreesPerRadian;
            end += Vector3f(std::cos(heading), std::sin(heading), 0.0f) * 0.03f;
        }
    }
    return hand;
}

} // namespace

TEST(FingerShapes, CurlIsTheMeanBendOnTheSideThatTheJointsLocalZDecides)
{
    const FingerShapes shapes;
    HandPalmData hand = handBentBy(80.0f, 40.0f, 20.0f);
    EXPECT_FLOAT_EQ(shapes.GetCurlValue(Index, handBentBy(0.0f, 0.0f, 0.0f).jointPoses), 180.0f);
    EXPECT_NEAR(shapes.GetCurlValue(Index, hand.jointPoses), 240.0f, 1e-3f);
    EXPECT_NEAR(shapes.GetFlexionValue(Index, hand.jointPoses), 200.0f, 1e-2f);
    hand.jointPoses[toIndex(HandJointId::IndexMid)].rotation = {1.0f, 0.0f, 0.0f, 0.0f}; // Z turned about
    EXPECT_NEAR(shapes.GetCurlValue(Index, hand.jointPoses), (100.0f + 220.0f) / 2.0f, 1e-3f);
    EXPECT_EQ(shapes.JointsCurlValue({HandJointId::IndexMid}, hand.jointPoses), 0.0f);
    const Posef end({}, {0.03f, 0.0f, 0.0f}); // folded back onto itself
    EXPECT_EQ(shapes.PosesCurlValue(end, {}, end), 0.0f);
    EXPECT_NEAR(GetVectorSignedAngle(Up, Up * -1.0f, Forward), 180.0f, 1e-3f); // no side to count
}

TEST(FingerShapes, AbductionIsNeverPositiveAndStartsAtTheThumbsOwnJoint)
{
    FingerShapes::JointPoses poses;
    poses[toIndex(HandJointId::IndexProximal)].translation = {1.0f, 0.0f, 0.0f};
    poses[toIndex(HandJointId::ThumbTip)].translation = {0.0f, 1.0f, 0.0f};
    poses[toIndex(HandJointId::IndexTip)].translation = {1.0f, 1.0f, 0.0f};
    const auto spread = [&](HandFinger f) {
        return FingerShapes().GetValue(f, FingerFeature::Abduction, poses);
    };
    // From the thumb's joint at the origin: from the midpoint (0.5, 0, 0) it would read -53 degrees.
    EXPECT_NEAR(spread(Thumb), -26.565f, 1e-3f);
    EXPECT_NEAR(spread(Index), -116.565f, 1e-3f);
    EXPECT_EQ(spread(Pinky), 0.0f);
    EXPECT_EQ(FingerShapes().GetValue(Index, FingerFeature::Opposition, poses), 1.0f);
    EXPECT_EQ(FingerShapes().GetValue(Index, static_cast<FingerFeature>(4), poses), 0.0f);
    EXPECT_TRUE(GetJointsAffected(Pinky, FingerFeature::Abduction).empty());
}

TEST(FingerShapes, FeaturesAreMeasuredByNameAndNameTheirJoints)
{
    using enum HandJointId;
    const FingerShapes shapes;
    const HandPalmData hand = handBentBy(80.0f, 40.0f, 20.0f);
    EXPECT_NEAR(shapes.GetValue(Ring, FingerFeature::Curl, hand.jointPoses), 240.0f, 1e-3f);
    EXPECT_NEAR(shapes.GetValue(Ring, FingerFeature::Flexion, hand.jointPoses), 200.0f, 1e-2f);
    EXPECT_EQ(shapes.GetValue(Thumb, FingerFeature::Opposition, hand.jointPoses), 0.0f);
    EXPECT_EQ(GetJointsAffected(Ring, FingerFeature::Curl), (std::vector{RingMid, RingDistal, RingTip}));
    EXPECT_EQ(GetJointsAffected(Ring, FingerFeature::Flexion),
              (std::vector{RingProximal, RingMid, RingDistal}));
    EXPECT_EQ(GetJointsAffected(Ring, FingerFeature::Opposition), (std::vector{ThumbTip, RingTip}));
    EXPECT_TRUE(GetJointsAffected(Ring, static_cast<FingerFeature>(4)).empty());
    FingerShapes::JointPoses row; // straight at each of the 22 joints between two
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i].translation.x = static_cast<float>(i);
    }
    EXPECT_NEAR(shapes.PosesListCurlValue(row), 22 * 180.0f, 1e-2f);
}

TEST(PalmGrab, StrengthWeighsCurlTwiceOverTheRangeOfEachFinger)
{
    const auto score = [](HandFinger finger, float curl, float flexion) {
        FingerPalmGrabAPI api;
        const HandPalmData hand = handBentBy(curl, curl, flexion);
        api.Update(&hand);
        return api.GetFingerGrabScore(finger);
    };
    EXPECT_NEAR(score(Thumb, 25.0f, 80.0f), 0.5f, 1e-4f);
    EXPECT_NEAR(score(Index, 0.0f, 0.0f), 0.0f, 1e-4f);
    EXPECT_NEAR(score(Index, 35.0f, 35.0f), 0.5f, 1e-4f);
    EXPECT_NEAR(score(Index, 35.0f, 0.0f), 1.0f / 3.0f, 1e-4f);
    EXPECT_NEAR(score(Pinky, 32.5f, 32.5f), 0.5f, 1e-4f);
    EXPECT_EQ(score(Pinky, 66.0f, 66.0f), 1.0f);
}

TEST(PalmGrab, StartsAboveOneThresholdAndEndsBelowTheOther)
{
    const std::vector<std::pair<float, bool>> steps = {{0.9f, false}, {0.9001f, true},  {0.7f, true},
                                                       {0.6f, true},  {0.5999f, false}, {0.7f, false},
                                                       {1.0f, true},  {0.0f, false}};
    FingerGrabData finger(Index);
    for (const auto& [strength, grabbing] : steps) {
        const bool changes = grabbing != finger.isGrabbing;
        finger.isGrabbingChanged = false;
        finger.grabStrength = strength;
        finger.UpdateIsGrabbing(0.9f, 0.6f);
        EXPECT_EQ(finger.isGrabbing, grabbing) << strength;
        EXPECT_EQ(finger.isGrabbingChanged, changes) << strength;
    }
}

TEST(PalmGrab, AHandOfZerosIsAFistAndOneThatStopsComingKeepsItsGrip)
{
    FingerPalmGrabAPI api;
    EXPECT_EQ(api.GetFingerGrabScore(Ring), 0.0f);
    HandPalmData lost;
    api.Update(&lost);
    EXPECT_EQ(api.GetFingerGrabScore(Ring), 1.0f);
    EXPECT_TRUE(api.GetFingerIsGrabbingChanged(Ring, true));
    EXPECT_FALSE(api.GetFingerIsGrabbingChanged(Ring, false));
    api.Update(nullptr);
    EXPECT_FALSE(api.GetFingerIsGrabbingChanged(Ring, true));
    EXPECT_TRUE(api.GetFingerIsGrabbing(Ring));
    EXPECT_FALSE(api.GetFingerIsGrabbing(NoFinger));
    EXPECT_EQ(api.GetFingerGrabScore(static_cast<HandFinger>(5)), 0.0f);
    EXPECT_TRUE(api.GetCenterOffset().IsEqual({-0.07f, 0.03f, 0.0f}, 0.0f));
    lost.handedness = -7;
    api.Update(&lost);
    EXPECT_TRUE(api.GetCenterOffset().IsEqual({0.07f, -0.03f, 0.0f}, 0.0f));
}
