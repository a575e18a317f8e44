// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <typeinfo>
#include <utility>

namespace velk::interaction::surface
{

namespace
{

// Also of NaN, and not of zeros whose signs differ.
bool isSameBits(const Vector3f& a, const Vector3f& b)
{
    return std::bit_cast<uint32_t>(a.x) == std::bit_cast<uint32_t>(b.x) &&
           std::bit_cast<uint32_t>(a.y) == std::bit_cast<uint32_t>(b.y) &&
           std::bit_cast<uint32_t>(a.z) == std::bit_cast<uint32_t>(b.z);
}

} // namespace

ClippedPlaneSurface::ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface)
    : ClippedPlaneSurface(std::move(backingSurface), {})
{
}

ClippedPlaneSurface::ClippedPlaneSurface(std::shared_ptr<PointablePlane> backingSurface,
                                         std::vector<BoundsClipper> clippers)
    : backingSurface_(std::move(backingSurface))
    , clippers_(std::move(clippers))
    , tellsOfChanges_(listenToFrames())
{
}

// False when the plane or a frame is of a class that may move unheard.
bool ClippedPlaneSurface::listenToFrames()
{
    PointablePlane& plane = *backingSurface_;
    if (typeid(plane) != typeid(PointablePlane)) {
        return false;
    }
    plane_.listenTo(plane);
    for (const BoundsClipper& clipper : clippers_) {
        velk::input::IPose& frame = clipper.getPoseSource();
        if (&frame == static_cast<velk::input::IPose*>(&plane)) {
            continue;
        }
        if (typeid(frame) != typeid(PointablePlane)) {
            return false;
        }
        frames_.push_back(std::make_unique<Dependence>(*this));
        frames_.back()->listenTo(static_cast<PointablePlane&>(frame));
    }
    return true;
}

void ClippedPlaneSurface::dependenceChanged()
{
    isCurrent_ = false;
    hasClamped_ = false;
    changed();
}

Posef ClippedPlaneSurface::getPose() const
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

bool ClippedPlaneSurface::closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const
{
    if (!backingSurface_->closestSurfacePoint(point, hit, maxDistance)) {
        return false;
    }
    Vector3f clamped;
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

Vector3f ClippedPlaneSurface::getNormal() const
{
    return backingSurface_->getNormal();
}

void ClippedPlaneSurface::setPose(const Posef& pose)
{
    backingSurface_->setPose(pose);
}

void ClippedPlaneSurface::setSize(const Vector2f& size)
{
    backingSurface_->setSize(size);
}

bool ClippedPlaneSurface::getLocalClipBounds(velk::math::AxisAlignedBox& bounds) const
{
    if (!isCurrent_) {
        hasClipBounds_ = computeLocalClipBounds(clipBounds_);
        isCurrent_ = tellsOfChanges_;
    }
    bounds = clipBounds_;
    return hasClipBounds_;
}

bool ClippedPlaneSurface::computeLocalClipBounds(velk::math::AxisAlignedBox& bounds) const
{
    constexpr float kUnlimited = std::numeric_limits<float>::max();
    bounds =
        velk::math::AxisAlignedBox(Vector3f(0.0f, 0.0f, 0.0f), Vector3f(kUnlimited, kUnlimited, kUnlimited));
    const Posef pose = getPose();
    for (const BoundsClipper& clipper : clippers_) {
        velk::math::AxisAlignedBox clipperBounds;
        clipper.getLocalBounds(pose, clipperBounds);
        if (!bounds.clip(clipperBounds, bounds)) {
            return false;
        }
    }
    return true;
}

bool ClippedPlaneSurface::clampPoint(const Vector3f& point, Vector3f& clamped) const
{
    velk::math::AxisAlignedBox bounds;
    if (!getLocalClipBounds(bounds)) {
        clamped = Vector3f::Zero();
        return false;
    }
    if (hasClamped_ && isSameBits(point, clampedFrom_)) {
        clamped = clampedTo_;
        return true;
    }
    const Vector3f local = getPose().InverseTransform(point);
    const Vector3f within(std::clamp(local.x, bounds.lowerBound.x, bounds.upperBound.x),
                          std::clamp(local.y, bounds.lowerBound.y, bounds.upperBound.y),
                          std::clamp(local.z, bounds.lowerBound.z, bounds.upperBound.z));
    clamped = getPose().Transform(within);
    clampedFrom_ = point;
    clampedTo_ = clamped;
    hasClamped_ = tellsOfChanges_;
    return true;
}

} // namespace velk::interaction::surface
