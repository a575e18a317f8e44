// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/SurfaceRegion.h"

#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
#include "velk_core/interaction/search/Rounding.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

namespace velk::interaction::search
{

namespace
{

using surface::ClippedPlaneSurface;
using surface::PointableAxisAlignedBox;
using surface::PointablePlane;

/// How far a rotation's squared length may be from 1.
constexpr float kLengthTolerance = 1.0e-3f;

template <typename Known>
const Known* as(const surface::ISurface* surface)
{
    return surface != nullptr && typeid(*surface) == typeid(Known) ? static_cast<const Known*>(surface)
                                                                   : nullptr;
}

using Lanes = surface::PlaneAxes::Lanes;

/// In the frame of a plane.
struct Extent
{
    Vector3f lower;
    Vector3f upper;
};

/// No coordinate is farther, and with a NaN among them it is NaN.
float farthestCoordinate(const Vector3f& lower, const Vector3f& upper)
{
    return std::fabs(lower.x) + std::fabs(lower.y) + std::fabs(lower.z) + std::fabs(upper.x) +
           std::fabs(upper.y) + std::fabs(upper.z);
}

Lanes lanesOf(const Vector3f& vector)
{
    return surface::PlaneAxes::lanesOf(vector.x, vector.y, vector.z);
}

Region oddRegion()
{
    Region region;
    region.isSilent = false;
    return region;
}

Region finish(const Lanes& lower, const Lanes& upper, float slack)
{
    const auto each = (absolute(lower) + absolute(upper)).lanes;
    const float farthest = each[0] + each[1] + each[2]; // NaN with a NaN among them
    if (!(farthest <= kFarthest)) {
        return oddRegion();
    }
    const Lanes around(slack + slackAt(farthest));
    Region region;
    (lower - around).store(region.box.lower.data());
    (upper + around).store(region.box.upper.data());
    region.isOdd = false;
    region.isSilent = false;
    return region;
}

// A rotation that is not quite of unit length scales by its squared length, some queries into the frame and
// out of it.
Region turn(const PointablePlane& plane, const Extent& extent)
{
    constexpr float kTimesScaled = 5.0f;
    const Posef pose = plane.PointablePlane::getPose();
    const float scaled = kTimesScaled * std::fabs(pose.rotation.LengthSq() - 1.0f);
    const float reach = farthestCoordinate(extent.lower, extent.upper);
    if (!(scaled <= kTimesScaled * kLengthTolerance) || !(reach <= kFarthest)) {
        return oddRegion();
    }
    const Vector3f middle = 0.5f * (extent.lower + extent.upper);
    const Vector3f half = 0.5f * (extent.upper - extent.lower);
    const Lanes x = plane.getAxes().getXLanes();
    const Lanes y = plane.getAxes().getYLanes();
    const Lanes z = plane.getAxes().getZLanes();
    const Lanes centre = lanesOf(pose.translation) + x * middle.x + y * middle.y + z * middle.z;
    const Lanes around = absolute(x) * half.x + absolute(y) * half.y + absolute(z) * half.z;
    return finish(centre - around, centre + around, (scaled + kRelativeSlack) * reach);
}

// The rectangle of a plane, within its clip box if it has one. A negative size, which nothing hits, is left
// odd.
Region findRegionOfRectangle(const PointablePlane& plane, const math::AxisAlignedBox* clip)
{
    const Vector2f size = plane.getSize();
    Extent extent{Vector3f(-size.x, -size.y, 0.0f), Vector3f(size.x, size.y, 0.0f)};
    if (clip != nullptr) {
        extent.lower.x = std::max(extent.lower.x, clip->lowerBound.x);
        extent.lower.y = std::max(extent.lower.y, clip->lowerBound.y);
        extent.upper.x = std::min(extent.upper.x, clip->upperBound.x);
        extent.upper.y = std::min(extent.upper.y, clip->upperBound.y);
    }
    if (!(extent.lower.x <= extent.upper.x && extent.lower.y <= extent.upper.y)) {
        return oddRegion();
    }
    return turn(plane, extent);
}

Region findRegionOfBox(const PointableAxisAlignedBox& box)
{
    // A box whose bounds are the wrong way round is hit like any other.
    const Vector3f lower = box.getLowerBound();
    const Vector3f upper = box.getUpperBound();
    if (!(farthestCoordinate(lower, upper) <= kFarthest)) {
        return oddRegion(); // also for a NaN, which std::min and std::max may drop
    }
    Region region = finish(
        lanesOf({std::min(lower.x, upper.x), std::min(lower.y, upper.y), std::min(lower.z, upper.z)}),
        lanesOf({std::max(lower.x, upper.x), std::max(lower.y, upper.y), std::max(lower.z, upper.z)}), 0.0f);
    region.isBox = !region.isOdd;
    return region;
}

bool isBounded(const math::AxisAlignedBox& box)
{
    const Vector3f size = box.upperBound - box.lowerBound;
    return size.x >= 0.0f && size.y >= 0.0f && size.z >= 0.0f;
}

} // namespace

surface::ChangeSource* findChangeSource(surface::ISurface* surface)
{
    if (surface == nullptr) {
        return nullptr;
    }
    if (typeid(*surface) == typeid(PointablePlane)) {
        return static_cast<PointablePlane*>(surface);
    }
    if (typeid(*surface) == typeid(PointableAxisAlignedBox)) {
        return static_cast<PointableAxisAlignedBox*>(surface);
    }
    if (typeid(*surface) == typeid(ClippedPlaneSurface)) {
        auto* clipped = static_cast<ClippedPlaneSurface*>(surface);
        return clipped->tellsOfChanges() ? clipped : nullptr;
    }
    return nullptr;
}

Region findRegionOfRays(const surface::ISurface* surface)
{
    if (const auto* plane = as<PointablePlane>(surface)) {
        return findRegionOfRectangle(*plane, nullptr);
    }
    if (const auto* box = as<PointableAxisAlignedBox>(surface)) {
        return findRegionOfBox(*box);
    }
    const auto* clipped = as<ClippedPlaneSurface>(surface);
    if (clipped == nullptr || !clipped->tellsOfChanges()) {
        return {};
    }
    math::AxisAlignedBox clip;
    if (!clipped->getLocalClipBounds(clip) || !isBounded(clip)) {
        return oddRegion();
    }
    return findRegionOfRectangle(clipped->getPlane(), &clip);
}

Region findRegionOfTouch(const surface::ISurfacePatch* patch, float height, float margin)
{
    const auto* clipped = as<ClippedPlaneSurface>(patch);
    if (clipped == nullptr || !clipped->tellsOfChanges()) {
        return {};
    }
    math::AxisAlignedBox clip;
    if (!(height >= 0.0f && margin >= 0.0f) || !clipped->getLocalClipBounds(clip) || !isBounded(clip)) {
        return oddRegion();
    }
    const Vector2f end = clipped->getPlane().getSize();
    const float free = margin + kShortWay;
    if (!(clip.lowerBound.x - free >= -end.x && clip.upperBound.x + free <= end.x &&
          clip.lowerBound.y - free >= -end.y && clip.upperBound.y + free <= end.y)) {
        return oddRegion();
    }
    const Extent extent{Vector3f(clip.lowerBound.x - margin, clip.lowerBound.y - margin, 0.0f),
                        Vector3f(clip.upperBound.x + margin, clip.upperBound.y + margin, height)};
    return turn(clipped->getPlane(), extent);
}

} // namespace velk::interaction::search
