// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "tests/support/MathMatchers.h"
#include "velk_core/interaction/proximityfield/BoxProximityField.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace velk::test
{

using interaction::proximity_field::BoxProximityField;
using namespace interaction::surface;

/// Patches of one plane, with clippers in the frame of a carrier that is a second plane.
class ClippedPlane : public ::testing::Test
{
protected:
    ClippedPlaneSurface patch(const std::vector<BoundsClipper>& clippers) const
    {
        return ClippedPlaneSurface(plane, clippers);
    }

    /// A ray from 1 over the plane, at x, y of its frame, straight down.
    bool hits(const ClippedPlaneSurface& surface, float x, float y)
    {
        const Posef pose = plane->getPose();
        return surface.raycast({pose.Transform(Vector3f(x, y, 1.0f)), pose.Rotate(-axis(2))}, hit, 0.0f);
    }

    std::shared_ptr<PointablePlane> plane = std::make_shared<PointablePlane>();
    std::shared_ptr<PointablePlane> carrier = std::make_shared<PointablePlane>();
    Vector3f unit{1.0f, 1.0f, 1.0f};
    SurfaceHit hit;
};

TEST_F(ClippedPlane, FullWidthsNarrowItWherePlaneAndClipperGoTogether)
{
    const auto surface = patch({{carrier, axis(0), Vector3f(1.0f, 0.5f, 0.2f)}});
    for (const Posef& pose :
         {Posef(), Posef(turn(Vector3f(1.0f, -2.0f, 0.5f), 2.0f), Vector3f(0.5f, 1.0f, -2.0f))}) {
        plane->setPose(pose);
        carrier->setPose(pose);
        for (const float side : {1.0f, -1.0f}) {
            EXPECT_TRUE(hits(surface, 1.0f + side * 0.499f, side * 0.249f));
            EXPECT_FALSE(hits(surface, 1.0f + side * 0.501f, 0.0f) || hits(surface, 1.0f, side * 0.251f));
        }
        EXPECT_TRUE(surface.closestSurfacePoint(pose.Transform(Vector3f(3.0f, -2.0f, 1.0f)), hit, 0.0f));
        EXPECT_TRUE(isNear(hit.point, pose.Transform(Vector3f(1.5f, -0.25f, 0.0f)), kRounding));
    }
}

TEST_F(ClippedPlane, ClosestPointHoldsTheLimitAgainstTheHeightAndThenAgainstTheWay)
{
    const auto surface = patch({{carrier, Vector3f::ZERO, unit}});
    const Vector3f point(2.0f, 0.0f, 1.0f);
    const float way = std::sqrt(3.25f);
    EXPECT_FALSE(surface.closestSurfacePoint(point, hit, 0.999f) || hit.distance != 0.0f); // untouched
    for (const float limit : {1.8f, way, 0.0f, -1.0f}) {
        hit = SurfaceHit();
        EXPECT_EQ(surface.closestSurfacePoint(point, hit, limit), limit != 1.8f);
        EXPECT_TRUE(isNear(hit.point, axis(0) * 0.5f) && hit.distance == way); // filled in any case
    }
}

TEST_F(ClippedPlane, ClippersIntersectInDepthToo)
{
    const auto touching = patch({{carrier, Vector3f::ZERO, unit}, {carrier, axis(0), unit}});
    EXPECT_TRUE(hits(touching, 0.5f, 0.25f) && !hits(touching, 0.499f, 0.25f));
    EXPECT_TRUE(hits(patch({{carrier, axis(2) * 0.5f, unit}}), 0.0f, 0.0f));
    EXPECT_FALSE(hits(patch({{carrier, axis(2) * 0.501f, unit}}), 0.0f, 0.0f));
    const auto apart = patch({{carrier, Vector3f::ZERO, unit}, {carrier, axis(0) * 3.0f, unit}});
    EXPECT_FALSE(hits(apart, 0.0f, 0.0f) || apart.closestSurfacePoint(Vector3f(2.0f, 0.0f, 1.0f), hit, 0.0f));
    EXPECT_TRUE(isNear(hit.point, axis(0) * 2.0f)); // the plane's own
    EXPECT_TRUE(patch({}).closestSurfacePoint(Vector3f(1000.0f, 0.0f, 1.0f), hit, 0.0f));
    EXPECT_TRUE(isNear(hit.point, axis(0) * 1000.0f));
}

TEST_F(ClippedPlane, AClipperFollowsItsOwnFrameButKeepsThePlanesAxes)
{
    const auto surface = patch({{carrier, axis(0), Vector3f(2.0f, 0.5f, 1.0f)}});
    EXPECT_TRUE(hits(surface, 1.9f, 0.2f));
    EXPECT_TRUE(surface.closestSurfacePoint(axis(0) * 5.0f, hit, 0.0f) && isNear(hit.point, axis(0) * 2.0f));
    // A quarter turn takes the centre from (1, 0) to (0, 1), and leaves the long side along x.
    carrier->setPose(Posef(turn(axis(2), TAL::kPi / 2.0f), Vector3f::ZERO));
    EXPECT_TRUE(hits(surface, 0.9f, 1.2f) && !hits(surface, 1.9f, 0.2f) && !hits(surface, 0.2f, 1.9f));
    EXPECT_TRUE(surface.closestSurfacePoint(axis(0) * 5.0f, hit, 0.0f));
    EXPECT_TRUE(isNear(hit.point, Vector3f(1.0f, 0.75f, 0.0f), kRounding));
}

TEST_F(ClippedPlane, IsItsPlaneInAllThatIsNotClipped)
{
    auto surface = patch({{carrier, Vector3f::ZERO, unit}});
    surface.setPose(Posef(turn(axis(0), TAL::kPi / 2.0f), axis(1) * 0.25f)); // faces -y
    EXPECT_TRUE(isNear(plane->getPose().translation, axis(1) * 0.25f));
    EXPECT_TRUE(isNear(surface.getNormal(), -axis(1), kRounding));
    EXPECT_TRUE(isNear(surface.getBounds().halfSize, plane->getBounds().halfSize));
    EXPECT_TRUE(hits(surface, 0.4f, 0.0f));
    surface.setSize(Vector2f(0.25f, 0.25f));
    EXPECT_FALSE(hits(surface, 0.4f, 0.0f));
    EXPECT_FALSE(surface.raycast({axis(1), -axis(1)}, hit, 0.0f)); // from behind
}

TEST(BoxProximityField, KeepsPointsInsideAndClampsTheOthersInItsFrame)
{
    const Posef pose(turn(Vector3f(1.0f, 1.0f, -2.0f), 2.5f), Vector3f(1.0f, -4.0f, 0.5f));
    BoxProximityField field(pose, Vector3f(2.0f, 4.0f, 1.0f));
    const std::pair<Vector3f, Vector3f> cases[] = {
        {Vector3f(0.9f, -1.9f, 0.4f), Vector3f(0.9f, -1.9f, 0.4f)},
        {Vector3f(-3.0f, 1.0f, 0.1f), Vector3f(-1.0f, 1.0f, 0.1f)},
        {Vector3f(2.0f, -5.0f, 0.6f), Vector3f(1.0f, -2.0f, 0.5f)},
        {Vector3f(0.2f, 5.0f, -0.6f), Vector3f(0.2f, 2.0f, -0.5f)}};
    for (const auto& [point, closest] : cases) {
        EXPECT_TRUE(
            isNear(field.computeClosestPoint(pose.Transform(point)), pose.Transform(closest), kRounding));
    }
    for (const float thin : {0.0f, -1.0f, kNaN}) {
        BoxProximityField slab(Posef(), Vector3f(thin, 2.0f, thin));
        EXPECT_TRUE(isNear(slab.computeClosestPoint(Vector3f(3.0f, 3.0f, -3.0f)), axis(1), kRounding));
    }
}

} // namespace velk::test
