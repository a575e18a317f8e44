// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/SurfaceRegion.h"

#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
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

/// Metres. What lies or reaches farther is odd, so that rounding stays within the slack.
constexpr float kFarthest = 1.0e5f;

/// How far a rotation's squared length may be from 1.
constexpr float kLengthTolerance = 1.0e-3f;

/// Rounding: a hundred times what the queries' few operations amount to, of the farthest coordinate.
constexpr float kRelativeSlack = 1.0e-5f;
constexpr float kLeastSlack = 1.0e-6f;

template <typename Known>
const Known* as(const surface::ISurface* surface)
{
    return surface != nullptr && typeid(*surface) == typeid(Known) ? static_cast<const Known*>(surface)
                                                                   : nullptr;
}

/// In the frame of a surface.
struct Extent
{
    Vector3f lower;
    Vector3f upper;
};

float farthestCoordinate(const Box& box)
{
    float farthest = 0.0f;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        // A NaN goes on to be refused.
        for (const float coordinate : {box.lower[axis], box.upper[axis]}) {
            farthest = std::fabs(coordinate) <= farthest ? farthest : std::fabs(coordinate);
        }
    }
    return farthest;
}

Region oddRegion()
{
    Region region;
    region.isSilent = false;
    return region;
}

Region finish(Box box, float slack)
{
    const float farthest = farthestCoordinate(box);
    if (!(farthest <= kFarthest)) {
        return oddRegion();
    }
    box.grow(slack + kRelativeSlack * farthest + kLeastSlack);
    return {box, false, false, false};
}

// A rotation that is not quite of unit length scales by its squared length, some queries into the frame and
// out of it.
Region turn(const Posef& pose, const Extent& extent)
{
    constexpr float kTimesScaled = 4.0f;
    const float scaled = kTimesScaled * std::fabs(pose.rotation.LengthSq() - 1.0f);

    const float reach = farthestCoordinate(
        {{extent.lower.x, extent.lower.y, extent.lower.z}, {extent.upper.x, extent.upper.y, extent.upper.z}});
    if (!(scaled <= kTimesScaled * kLengthTolerance) || !(reach <= kFarthest)) {
        return oddRegion();
    }
    Box box;
    for (const float x : {extent.lower.x, extent.upper.x}) {
        for (const float y : {extent.lower.y, extent.upper.y}) {
            for (const float z : {extent.lower.z, extent.upper.z}) {
                box.add(pose.Transform(Vector3f(x, y, z)));
            }
        }
    }
    return finish(box, (scaled + kRelativeSlack) * reach);
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
    return turn(plane.getPose(), extent);
}

Region findRegionOfBox(const PointableAxisAlignedBox& box)
{
    // A box whose bounds are the wrong way round is hit like any other.
    Box sides;
    sides.add(box.getLowerBound());
    sides.add(box.getUpperBound());
    Region region = finish(sides, 0.0f);
    region.isBox = !region.isOdd;
    return region;
}

bool isFinite(const math::AxisAlignedBox& box)
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
    if (!clipped->getLocalClipBounds(clip) || !isFinite(clip)) {
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
    if (!(height >= 0.0f && margin >= 0.0f) || !clipped->getLocalClipBounds(clip) || !isFinite(clip)) {
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
    return turn(clipped->getPose(), extent);
}

} // namespace velk::interaction::search
