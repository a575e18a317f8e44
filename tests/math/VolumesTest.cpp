// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
#include "math/Plane.h"
#include "tests/support/MathMatchers.h"

#include <algorithm>
#include <cmath>

namespace velk::test
{

using namespace math;

static const AxisAlignedBox kCube(Vector3f::ZERO, Vector3f(2.0f, 2.0f, 2.0f));

TEST(Plane, HitsFromBothSidesAndMissesParallelRaysBelowTheToleranceOnly)
{
    const Plane plane(Vector3f::ZERO, axis(2));
    const float tolerance = TAL::Math<float>::Tolerance(); // the length of (1, 0, tolerance) rounds to 1
    float distance = 7.0f;
    EXPECT_FALSE(plane.raycast(Ray{axis(2), Vector3f(1.0f, 0.0f, -0.999f * tolerance)}, distance) ||
                 distance != 0.0f);
    EXPECT_TRUE(plane.raycast(Ray{axis(2), Vector3f(1.0f, 0.0f, -tolerance)}, distance));
    EXPECT_TRUE(plane.raycast(Ray{axis(2) * -3.0f, axis(2) * 2.0f}, distance) && distance == 3.0f);
}

// Over a grid in and around a cube, against a naive distance to its surface.
TEST(AxisAlignedBox, ClosestPointIsOnTheNearestFace)
{
    for (int i = 0; i < 343; ++i) {
        const Vector3f point(static_cast<float>(i % 7 - 3) * 0.61f, static_cast<float>(i / 7 % 7 - 3) * 0.62f,
                             static_cast<float>(i / 49 % 7 - 3) * 0.63f);
        const Vector3f over(std::fabs(point.x) - 1.0f, std::fabs(point.y) - 1.0f, std::fabs(point.z) - 1.0f);
        const float depth = -std::max({over.x, over.y, over.z});
        const float expected = depth > 0.0f ? depth : Vector3f::Max(over, Vector3f::ZERO).Length();
        EXPECT_NEAR(kCube.closestPointOnSurface(point).Distance(point), expected, kRounding);
    }
}

TEST(AxisAlignedBox, EveryFaceIsHitFromOutsideAndInside)
{
    EXPECT_TRUE(isNear(kCube.closestSurfaceNormal(Vector3f(-0.9f, 0.9f, 0.0f)), axis(1))); // a tie
    EXPECT_TRUE(isNear(kCube.closestSurfaceNormal(Vector3f(0.9f, kNaN, -0.1f)), -axis(2)));
    for (int a = 0; a < 3; ++a) {
        for (const Vector3f& out : {axis(a), -axis(a)}) {
            float distance = 0.0f;
            // In lengths of the direction; from inside, to the entry behind the origin.
            EXPECT_TRUE(kCube.raycast(Ray{out * 5.0f, out * -2.0f}, distance) && distance == 2.0f);
            EXPECT_TRUE(kCube.raycast(Ray{Vector3f::ZERO, out}, distance) && distance == -1.0f);
            EXPECT_FALSE(kCube.raycast(Ray{out * 5.0f, out}, distance)); // behind
            EXPECT_FALSE(kCube.raycast(Ray{out * 5.0f + axis((a + 1) % 3) * 1.1f, -out}, distance));
            EXPECT_TRUE(isNear(kCube.closestSurfaceNormal(out * 0.9f), out));
            EXPECT_TRUE(kCube.isWithinVolume(out) && !kCube.isWithinVolume(out * 1.0001f));
        }
    }
}

// Zero times infinity is NaN, and the order of the comparisons decides: a lower face of y or z is hit as
// usual, an upper face is missed, and the lower face of x is hit at no distance at all.
TEST(AxisAlignedBox, RayWithinAFaceFollowsTheOperandOrder)
{
    for (int a = 0; a < 3; ++a) {
        const Vector3f along = axis((a + 1) % 3);
        float distance = 0.0f;
        EXPECT_FALSE(kCube.raycast(Ray{axis(a) - along * 5.0f, along}, distance));
        EXPECT_TRUE(kCube.raycast(Ray{-axis(a) - along * 5.0f, along}, distance));
        EXPECT_TRUE(a == 0 ? std::isnan(distance) : distance == 4.0f);
    }
}

} // namespace velk::test
