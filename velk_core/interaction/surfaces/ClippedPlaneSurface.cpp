// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace velk::interaction::surface
{

ClippedPlaneSurface::ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface)
    : backingSurface_(std::move(backingSurface))
{
}

ClippedPlaneSurface::ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface,
                                         std::vector<BoundsClipper> clippers)
    : backingSurface_(std::move(backingSurface))
    , clippers_(std::move(clippers))
{
}

TAL::Pose<float> ClippedPlaneSurface::getPose() const
{
    return backingSurface_->getPose();
}

bool ClippedPlaneSurface::raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const
{
    if (!backingSurface_->raycast(ray, hit, maxDistance)) {
        return false;
    }
    velk::math::AxisAlignedBox bounds;
    if (!getLocalClipBounds(bounds)) {
        return false;
    }
    return bounds.isWithinVolume(getPose().InverseTransform(hit.point));
}

bool ClippedPlaneSurface::closestSurfacePoint(const TAL::Vector3<float>& point, SurfaceHit& hit,
                                              float maxDistance) const
{
    if (!backingSurface_->closestSurfacePoint(point, hit, maxDistance)) {
        return false;
    }
    TAL::Vector3<float> clamped;
    if (!clampPoint(hit.point, clamped)) {
        return false;
    }
    hit.point = clamped;
    hit.distance = point.Distance(hit.point);
    return 0.0f >= maxDistance || maxDistance >= hit.distance;
}

ISurface& ClippedPlaneSurface::getBackingSurface() const
{
    return *backingSurface_;
}

velk::math::AxisAlignedBox ClippedPlaneSurface::getBounds() const
{
    return backingSurface_->getBounds();
}

TAL::Vector3<float> ClippedPlaneSurface::getNormal() const
{
    return backingSurface_->getNormal();
}

void ClippedPlaneSurface::setPose(const TAL::Pose<float>& pose)
{
    backingSurface_->setPose(pose);
}

void ClippedPlaneSurface::setSize(const TAL::Vector2<float>& size)
{
    backingSurface_->setSize(size);
}

bool ClippedPlaneSurface::getLocalClipBounds(velk::math::AxisAlignedBox& bounds) const
{
    constexpr float kUnlimited = std::numeric_limits<float>::max();
    bounds = velk::math::AxisAlignedBox(TAL::Vector3<float>(0.0f, 0.0f, 0.0f),
                                        TAL::Vector3<float>(kUnlimited, kUnlimited, kUnlimited));
    const TAL::Pose<float> pose = getPose();
    for (const BoundsClipper& clipper : clippers_) {
        velk::math::AxisAlignedBox clipperBounds;
        clipper.getLocalBounds(pose, clipperBounds);
        if (!bounds.clip(clipperBounds, bounds)) {
            return false;
        }
    }
    return true;
}

bool ClippedPlaneSurface::clampPoint(const TAL::Vector3<float>& point, TAL::Vector3<float>& clamped) const
{
    velk::math::AxisAlignedBox bounds;
    if (!getLocalClipBounds(bounds)) {
        clamped = TAL::Vector3<float>::Zero();
        return false;
    }
    const TAL::Vector3<float> local = getPose().InverseTransform(point);
    const TAL::Vector3<float> within(std::clamp(local.x, bounds.lowerBound.x, bounds.upperBound.x),
                                     std::clamp(local.y, bounds.lowerBound.y, bounds.upperBound.y),
                                     std::clamp(local.z, bounds.lowerBound.z, bounds.upperBound.z));
    clamped = getPose().Transform(within);
    return true;
}

} // namespace velk::interaction::surface
