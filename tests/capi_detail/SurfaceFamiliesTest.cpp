// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "math/Aliases.h"
#include "tests/support/MathMatchers.h"
#include "velk_capi/detail/VelkClippedPlaneSurface.h"
#include "velk_capi/detail/VelkPointableAxisAlignedBox.h"
#include "velk_capi/detail/VelkPointablePlane.h"
#include "velk_capi/detail/VelkPointableSurface.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"

#include <velk/velk.h>

#include <stdexcept>

namespace velk::test
{

using namespace capi;

TEST(SurfaceFamilies, NullArgumentsAndKinds)
{
    const talpPosef pose{{0.0f, 0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 2.0f}};
    const talpVector3f a{3.0f, 0.0f, 3.0f};
    const talpVector3f b{0.0f, 3.0f, 0.0f};
    const auto plane = pointable_plane::create(nullptr, nullptr);
    const auto box = pointable_axis_aligned_box::create(nullptr, nullptr);
    EXPECT_EQ(pointable_surface::setPose(box, &pose), -1);
    EXPECT_EQ(pointable_axis_aligned_box::setCentroid(box, nullptr), -4);
    EXPECT_EQ(pointable_axis_aligned_box::setBounds(box, &a, &b), 0); // in order, axis by axis

    velk_SurfaceHit hit{};
    EXPECT_EQ(pointable_surface::closestSurfacePoint(plane, nullptr, &hit, 0.0f), -1);
    EXPECT_EQ(pointable_surface::closestSurfacePoint(plane, &a, nullptr, 1.0f), 2);
    EXPECT_TRUE(pointable_surface::closestSurfacePoint(box, &pose.position, &hit, 0.0f) == 1 &&
                hit.normal.y == -1.0f);

    EXPECT_EQ(clipped_plane_surface::setPose(clipped_plane_surface::create(&pose, nullptr, 0), &pose), -1);
    EXPECT_THROW(clipped_plane_surface::create(&pose, nullptr, -1), std::length_error);
}

TEST(SurfaceFamilies, PartsOfABoxAreSetAloneAndKeepTheOthers)
{
    using interaction::surface::PointableAxisAlignedBox;
    const auto handle = pointable_axis_aligned_box::create(nullptr, nullptr);
    const auto& box = *pointable_surface::getRawPtr<PointableAxisAlignedBox>(handle);
    const auto reaches = [&box](Vector3f lower, Vector3f upper) {
        const Vector3f center = (lower + upper) * 0.5f;
        return isNear(box.getLowerBound(), lower) && isNear(box.getUpperBound(), upper) &&
               isNear(box.getSize(), upper - lower) && isNear(box.getCenter(), center) &&
               isNear(box.getPose().translation, center) && isNear(box.getBounds().upperBound, upper);
    };
    const talpVector3f corner{3.0f, 0.0f, 3.0f};
    const talpVector3f beyond{4.0f, -1.0f, 1.0f};
    const talpVector3f center{1.0f, 1.0f, 1.0f};
    const talpVector3f size{2.0f, 4.0f, 2.0f};
    EXPECT_EQ(pointable_axis_aligned_box::setBounds(handle, nullptr, &corner), 0);
    EXPECT_TRUE(reaches(Vector3f::ZERO, Vector3f(3.0f, 0.0f, 3.0f)));
    EXPECT_EQ(pointable_axis_aligned_box::setBounds(handle, &beyond, nullptr), 0); // not put in order
    EXPECT_TRUE(reaches(Vector3f(4.0f, -1.0f, 1.0f), Vector3f(3.0f, 0.0f, 3.0f)));
    EXPECT_EQ(pointable_axis_aligned_box::setCentroidAndSize(handle, &center, nullptr), 0);
    EXPECT_TRUE(reaches(Vector3f(1.5f, 0.5f, 0.0f), Vector3f(0.5f, 1.5f, 2.0f)));
    EXPECT_EQ(pointable_axis_aligned_box::setCentroidAndSize(handle, nullptr, &size), 0);
    EXPECT_TRUE(reaches(Vector3f(0.0f, -1.0f, 0.0f), Vector3f(2.0f, 3.0f, 2.0f)));
    EXPECT_EQ(pointable_axis_aligned_box::setBounds(handle, nullptr, nullptr), 0);
    EXPECT_EQ(pointable_axis_aligned_box::setCentroidAndSize(handle, nullptr, nullptr), 0);
    EXPECT_TRUE(reaches(Vector3f(0.0f, -1.0f, 0.0f), Vector3f(2.0f, 3.0f, 2.0f)));
}

} // namespace velk::test
