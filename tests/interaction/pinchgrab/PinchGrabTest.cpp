// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "math/Math.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

using velk::Vector3f;
using namespace velk::interaction::grab;
using enum HandJointId;

namespace
{
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr Vector3f kView(0.0f, 0.0f, 1.0f);
} // namespace

/// A hand whose thumb lies along X, its tip at the origin and its joints 3 cm apart. The index finger lies
/// bent in the plane y = 0.5; all else is 1 m off.
class PinchTest : public testing::Test
{
protected:
    PinchTest()
    {
        hand.jointPositions.fill({0.0f, 1.0f, 0.0f});
        joint(ThumbProximal) = {-0.06f, 0.0f, 0.0f};
        joint(ThumbDistal) = {-0.03f, 0.0f, 0.0f};
        joint(ThumbTip) = {};
        joint(IndexProximal) = {-0.01f, 0.5f, 0.05f};
        joint(IndexMid) = {-0.01f, 0.5f, 0.02f};
        joint(IndexDistal) = {-0.005f, 0.5f, -0.01f};
    }
    Vector3f& joint(HandJointId id) { return hand.jointPositions[toIndex(id)]; }
    bool update(bool goodView)
    {
        api.update(&hand, &kView, goodView ? &kView : nullptr);
        return api.getFingerIsGrabbing(HandFinger::Index);
    }
    /// The index tip beside the thumb, whose last bone has its middle at -0.015.
    bool pinchAt(float distance, bool goodView = true, float along = -0.015f)
    {
        joint(IndexTip) = {along, distance, 0.0f};
        return update(goodView);
    }
    /// The thumb's last bone crosses the index finger, with these gaps between its ends and that finger's
    /// plane.
    bool thumbPinches(float distalGap, float tipGap)
    {
        joint(ThumbDistal) = {-0.03f, 0.5f - distalGap, 0.0f};
        joint(ThumbTip) = {0.01f, 0.5f - tipGap, 0.0f};
        update(true);
        return api.getFingerIsGrabbing(HandFinger::Thumb);
    }

    velk::data::HandPinchData hand;
    FingerPinchGrabAPI api;
};

TEST(PinchHysteresis, IsStrictAndCountsTheOffsetFromTheLeastDistance)
{
    const std::vector<std::pair<float, bool>> steps = {{0.25f, false},  {kNaN, false},
                                                       {0.2499f, true}, {0.7f, true},
                                                       {0.125f, true},  {kNaN, true},
                                                       {0.625f, true},  {0.6251f, false},
                                                       {0.249f, true},  {0.7001f, false},
                                                       {0.1f, true},    {0.61f, false},
                                                       {0.2f, true},    {PositiveInfinity, false}};
    FingerPinchData finger(HandFinger::Index);
    for (const auto& [distance, pinching] : steps) {
        const bool changes = pinching != finger.isPinching;
        finger.ClearState();
        finger.UpdateIsPinching(distance, 0.25f, 0.5f, 0.7f);
        EXPECT_EQ(finger.isPinching, pinching) << distance;
        EXPECT_EQ(finger.isPinchingChanged, changes) << distance;
    }
}

TEST_F(PinchTest, GoodViewAsksForACloserPinchAndEndsItSooner)
{
    EXPECT_EQ(api.getFingerGrabScore(HandFinger::Index), 0.0f); // before the first hand, and far away
    pinchAt(0.2f);
    EXPECT_EQ(api.getFingerGrabScore(HandFinger::Index), 0.0f);
    for (const auto& [good, start, stop] : {std::tuple{true, 0.016f, 0.021f}, {false, 0.020f, 0.045f}}) {
        EXPECT_FALSE(pinchAt(start + 1e-4f, good));
        EXPECT_TRUE(pinchAt(start - 1e-4f, good));
        EXPECT_TRUE(api.getFingerIsGrabbingChanged(HandFinger::Index, true));
        EXPECT_TRUE(pinchAt(0.005f, good));
        EXPECT_FALSE(api.getFingerIsGrabbingChanged(HandFinger::Index, true));
        EXPECT_TRUE(pinchAt(stop - 1e-4f, good));
        EXPECT_FALSE(pinchAt(stop + 1e-4f, good));
        EXPECT_NEAR(api.getFingerGrabScore(HandFinger::Index), 1.0f - (stop - start) / (0.1f - start), 2e-3f);
    }
}

TEST_F(PinchTest, ViewIsGoodUpTo40Degrees)
{
    for (const auto& [degrees, good] :
         {std::pair{39.0f, true}, {40.0f, true}, {41.0f, false}, {kNaN, true}}) {
        const float angle = degrees / TAL::kDegreesPerRadian;
        const Vector3f head(std::sin(angle), 0.0f, std::cos(angle));
        api.update(&hand, &kView, &head);
        EXPECT_EQ(api.DistanceStart(), good ? 0.016f : 0.02f) << degrees;
    }
    api.update(&hand, nullptr, &kView);
    EXPECT_EQ(api.DistanceStart(), 0.02f);
}

TEST_F(PinchTest, SlidesBackOverTheDistalJointButCannotStartThere)
{
    EXPECT_FALSE(pinchAt(0.01f, true, -0.045f));
    EXPECT_FALSE(pinchAt(0.01f, true, -0.03f)); // right over the joint
    EXPECT_TRUE(pinchAt(0.01f));
    EXPECT_TRUE(pinchAt(0.01f, true, -0.045f));
    EXPECT_FALSE(pinchAt(0.01f, true, -0.09f)); // 3 cm behind the chain
}

TEST_F(PinchTest, AHandOfZerosStartsNoPinchButKeepsOne)
{
    const velk::data::HandPinchData zeros;
    api.update(&zeros, nullptr, nullptr);
    EXPECT_FALSE(api.getFingerIsGrabbing(HandFinger::Index));
    EXPECT_TRUE(pinchAt(0.01f));
    api.update(&zeros, nullptr, nullptr);
    EXPECT_TRUE(api.getFingerIsGrabbing(HandFinger::Index));
    EXPECT_EQ(api.getFingerGrabScore(HandFinger::Index), 1.0f);
}

TEST_F(PinchTest, CenterLiesAtTheBestFingerAndTiesGoToTheEarlier)
{
    joint(MiddleTip) = {-0.02f, 0.01f, 0.0f};
    joint(RingTip) = {-0.01f, 0.01f, 0.0f};
    pinchAt(0.05f);
    EXPECT_TRUE(api.getCenterOffset().IsEqual({-0.01f, 0.005f, 0.0f}, 0.0f));
}

TEST_F(PinchTest, ThumbStartsBelow3CmAndEndsAbove5)
{
    EXPECT_FALSE(thumbPinches(0.0301f, 0.0301f));
    EXPECT_TRUE(thumbPinches(0.0299f, 0.0299f));
    EXPECT_TRUE(thumbPinches(0.0499f, 0.0499f));
    EXPECT_FALSE(thumbPinches(0.0501f, 0.0501f));
}

TEST_F(PinchTest, ThumbTipMustBeNearThePlaneOfABentIndexFingerButNotInIt)
{
    EXPECT_FALSE(thumbPinches(0.005f, 0.0501f));
    EXPECT_TRUE(thumbPinches(0.005f, 0.0499f));
    EXPECT_FALSE(thumbPinches(0.005f, 0.0f));
    EXPECT_TRUE(thumbPinches(0.01f, 0.01f));
    joint(IndexDistal) = {-0.01f, 0.5f, -0.01f}; // straight: no plane
    EXPECT_FALSE(thumbPinches(0.01f, 0.01f));
}

TEST_F(PinchTest, BonesAlignedWithTheThumbDoNotCount)
{
    update(true);
    const auto measure = [&](Vector3f direction, float limit) {
        const Vector3f start(-0.02f, 0.49f, 0.04f);
        return api.getClosestDistanceToJoints(start, start + direction, {IndexProximal, IndexMid}, limit);
    };
    EXPECT_EQ(measure({1.0f, 0.0f, 0.0f}, 0.0f), PositiveInfinity); // square to it: equal to the limit
    EXPECT_NEAR(measure({1.0f, 0.0f, 0.0f}, 0.001f), 0.01f, 1e-6f);
    EXPECT_EQ(measure(kView * -1.0f, 0.999f), PositiveInfinity);
    EXPECT_LT(measure(kView * -1.0f, 1.0f), 2.0f);
}

// The thumb's last bone over the index finger's first, at this angle to it.
TEST_F(PinchTest, AThumbLaidAlongTheIndexFingerBy60DegreesDoesNotPinchIt)
{
    for (const auto& [degrees, pinches] : {std::pair{55.0f, false}, {65.0f, true}, {75.0f, true}}) {
        const float angle = degrees / TAL::kDegreesPerRadian;
        const Vector3f half = Vector3f(std::sin(angle), 0.0f, -std::cos(angle)) * 0.02f;
        joint(ThumbDistal) = Vector3f(-0.01f, 0.49f, 0.035f) - half;
        joint(ThumbTip) = Vector3f(-0.01f, 0.49f, 0.035f) + half;
        api = FingerPinchGrabAPI();
        update(true);
        EXPECT_EQ(api.getFingerIsGrabbing(HandFinger::Thumb), pinches) << degrees;
    }
}

TEST_F(PinchTest, AnyChainOfJointsCanBeMeasured)
{
    update(true);
    const std::vector chain{ThumbProximal, ThumbDistal, ThumbTip};
    EXPECT_FLOAT_EQ(api.GetClosestDistanceToThumb({-0.045f, 0.02f, 0.0f}, chain), 0.02f);
    EXPECT_FLOAT_EQ(api.GetClosestDistanceToThumb({0.03f, 0.04f, 0.0f}, chain), 0.05f);
    EXPECT_EQ(api.GetClosestDistanceToThumb({}, {ThumbTip}), std::numeric_limits<float>::max());
    EXPECT_EQ(api.ClosestDistanceToLineSegment({1.0f, 4.0f, 0.0f}, {}, {4.0f, 0.0f, 0.0f}), 4.0f);
}

TEST_F(PinchTest, JointsThatDoNotExistHaveNoPosition)
{
    Vector3f out(7.0f, 0.0f, 0.0f);
    EXPECT_EQ(api.getFingerTipPos(static_cast<HandJointId>(5)).LengthSq(), 0.0f); // a joint, no finger
    for (const auto none : {static_cast<HandJointId>(-1), static_cast<HandJointId>(24)}) {
        EXPECT_FALSE(api.getJointPosFromWrist(none, out));
        EXPECT_EQ(out.x, 7.0f);
        EXPECT_EQ(api.getFingerTipPos(none).LengthSq(), 0.0f);
        EXPECT_FALSE(api.IsPointNearThumb({}, {PinkyTip, none}));
    }
}

TEST_F(PinchTest, NumbersThatAreNoFingerDoNotPinch)
{
    ASSERT_TRUE(pinchAt(0.005f));
    for (const int number : {-1, 5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        const auto finger = static_cast<HandFinger>(number);
        EXPECT_FALSE(api.getFingerIsGrabbing(finger));
        EXPECT_FALSE(api.getFingerIsGrabbingChanged(finger, false));
        EXPECT_EQ(api.getFingerGrabScore(finger), 0.0f);
    }
}

TEST(PinchGeometry, DegenerateSegmentsMeasureFromTheirEnd)
{
    const auto toSegment = FingerPinchGrabAPI::distancePointToSegment;
    const auto between = FingerPinchGrabAPI::distanceSegmentToSegment;
    const Vector3f end(4.0f, 0.0f, 0.0f);
    EXPECT_EQ(toSegment({-3.0f, 4.0f, 0.0f}, {}, end), 5.0f);
    EXPECT_EQ(toSegment({1.0f, 4.0f, 0.0f}, {}, end), 4.0f);
    EXPECT_EQ(toSegment({4.0f, 3.0f, 0.0f}, end, end), 3.0f);
    EXPECT_TRUE(std::isnan(toSegment({kNaN, 0.0f, 0.0f}, {}, end)));
    for (int i = 1; i < 8; ++i) { // two that cross, seen along Z: the gap
        const float x = 0.5f * static_cast<float>(i);
        EXPECT_NEAR(between({}, end, {4.0f - x, -1.0f, 0.2f}, {x, 1.0f, 0.2f}), 0.2f, 1e-5f);
    }
    // Beyond both ends; parallel, with the start nearer; no length in the first, and in the second.
    EXPECT_EQ(between({}, end, {7.0f, 4.0f, 0.0f}, {7.0f, 9.0f, 0.0f}), 5.0f);
    EXPECT_EQ(between({}, end, {-1.0f, 3.0f, 0.0f}, {0.0f, 3.0f, 0.0f}), 5.0f);
    EXPECT_EQ(between({3.0f, 1.0f, 0.0f}, {3.0f, 1.0f, 0.0f}, {}, end), 1.0f);
    EXPECT_TRUE(std::isnan(between({}, end, {1.0f, 1.0f, 0.0f}, {1.0f, 1.0f, 0.0f})));
}
