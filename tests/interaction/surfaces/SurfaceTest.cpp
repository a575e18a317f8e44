// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "tests/support/MathMatchers.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <cmath>
#include <limits>
#include <utility>

namespace velk::test
{

using namespace interaction::surface;
using math::Ray;

/// From 1 over the plane straight down, with a direction of length 2.
static bool hits(const Posef& pose, const Vector2f& size, const Vector3f& spot, SurfaceHit& hit)
{
    const Ray ray{pose.Transform(spot + axis(2)), pose.Rotate(axis(2) * -2.0f)};
    return PointablePlane(pose, size).raycast(ray, hit, 0.0f);
}

TEST(PointablePlane, SizeReachesThatFarToEachSideInItsOwnFrame)
{
    for (const Posef& pose :
         {Posef(), Posef(turn(Vector3f(1.0f, 2.0f, -1.0f), 1.2f), Vector3f(3.0f, -1.0f, 2.0f))}) {
        for (const float reach : {-0.999f, 0.999f, -1.001f, 1.001f}) {
            for (const Vector3f& spot : {axis(0) * reach, axis(1) * (reach * 0.5f)}) {
                SurfaceHit hit;
                EXPECT_EQ(hits(pose, Vector2f(1.0f, 0.5f), spot, hit), std::fabs(reach) < 1.0f);
                EXPECT_TRUE(isNear(hit.point, pose.Transform(spot), kRounding)); // on a miss too
                EXPECT_TRUE(isNear(hit.normal * hit.distance, pose.Rotate(axis(2)), kRounding));
            }
        }
    }
}

TEST(PointablePlane, EdgesCountAndANaNSizeIsNoLimit)
{
    SurfaceHit hit;
    EXPECT_TRUE(hits(Posef(), Vector2f(1.0f, 1.0f), Vector3f(1.0f, -1.0f, 0.0f), hit));
    EXPECT_TRUE(hits(Posef(), Vector2f::ZERO, Vector3f::ZERO, hit) &&
                !hits(Posef(), Vector2f::ZERO, axis(0) * 1e-6f, hit));
    EXPECT_TRUE(hits(Posef(), Vector2f(kNaN, kNaN), axis(0) * 1e6f, hit));
}

TEST(PointablePlane, OnlyTheFrontIsHitAndAMissLeavesTheOrigin)
{
    for (const Ray& ray : {Ray{-axis(2), axis(2)}, // from behind, away, parallel and on the plane
                           Ray{axis(2), axis(2)}, Ray{axis(2), axis(0)}, Ray{Vector3f::ZERO, -axis(2)}}) {
        SurfaceHit hit{Vector3f::ZERO, Vector3f::ZERO, 9.0f};
        EXPECT_FALSE(PointablePlane().raycast(ray, hit, 0.0f));
        EXPECT_TRUE(isNear(hit.point, ray.origin) && hit.distance == 0.0f);
    }
}

TEST(PointablePlane, MaxDistanceLimitsTheHeightNotTheWay)
{
    SurfaceHit hit;
    const Ray slanted{axis(2), Vector3f(3.0f, 0.0f, -1.0f)};
    EXPECT_FALSE(PointablePlane().raycast(slanted, hit, 0.999f));
    EXPECT_TRUE(PointablePlane().raycast(slanted, hit, 1.0f));
    EXPECT_NEAR(hit.distance, std::sqrt(10.0f), kRounding);
}

TEST(PointablePlane, ClosestPointIsThatOfTheEndlessTwoSidedPlane)
{
    for (const float height : {2.0f, -2.0f}) {
        SurfaceHit hit;
        const Vector3f point(100.0f, 0.0f, height);
        EXPECT_FALSE(PointablePlane(Posef(), Vector2f::ZERO).closestSurfacePoint(point, hit, 1.999f));
        EXPECT_TRUE(isNear(hit.normal, Vector3f::ZERO)); // untouched
        EXPECT_TRUE(PointablePlane(Posef(), Vector2f::ZERO).closestSurfacePoint(point, hit, 2.0f));
        EXPECT_TRUE(isNear(hit.point, axis(0) * 100.0f) && hit.distance == 2.0f);
    }
}

TEST(PointablePlane, BoundsAreThinOnlyAlongANormalOnAnAxis)
{
    constexpr float kLargest = std::numeric_limits<float>::max();
    constexpr float kThin = std::numeric_limits<float>::epsilon();
    const Vector3f place(1.0f, 2.0f, 3.0f);
    for (const auto& [rotation, size] :
         {std::pair{Quatf(), Vector3f(kLargest, kLargest, kThin)},
          {turn(axis(1), -TAL::kPi / 2.0f), Vector3f(kThin, kLargest, kLargest)},
          {turn(axis(0), TAL::kPi / 2.0f), Vector3f(kLargest, kThin, kLargest)},
          {turn(axis(0), 0.01f), Vector3f(kLargest, kLargest, kLargest)}}) {
        const auto bounds = PointablePlane(Posef(rotation, place), Vector2f::ZERO).getBounds();
        EXPECT_TRUE(isNear(bounds.halfSize, size * 0.5f) && isNear(bounds.centroid, place));
    }
}

TEST(PointableAxisAlignedBox, LimitsTheWayAndFillsTheClosestPointBeyondItToo)
{
    const PointableAxisAlignedBox box(Vector3f::ZERO, Vector3f(2.0f, 2.0f, 2.0f));
    const Ray ray{axis(2) * 5.0f, axis(2) * -2.0f};
    SurfaceHit hit;
    EXPECT_FALSE(box.raycast(ray, hit, 1.999f) || hit.distance != 0.0f); // untouched
    EXPECT_TRUE(box.raycast(ray, hit, 0.0f) && box.raycast(ray, hit, 2.0f));
    EXPECT_TRUE(isNear(hit.point, axis(2)) && isNear(hit.normal, axis(2)));
    EXPECT_TRUE(box.closestSurfacePoint(Vector3f(5.0f, 4.0f, 0.0f), hit, 0.0f)); // no limit
    EXPECT_FALSE(box.closestSurfacePoint(Vector3f(5.0f, 4.0f, 0.0f), hit, 4.999f));
    EXPECT_TRUE(isNear(hit.point, Vector3f(1.0f, 1.0f, 0.0f)) && isNear(hit.normal, axis(0)) &&
                hit.distance == 5.0f);
    EXPECT_TRUE(box.closestSurfacePoint(Vector3f::ZERO, hit, 1.0f) && isNear(hit.point, axis(2)));
}

} // namespace velk::test
