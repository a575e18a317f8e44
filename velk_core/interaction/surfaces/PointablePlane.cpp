// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <cmath>
#include <limits>

namespace velk::interaction::surface
{

namespace
{
constexpr float kLargest = std::numeric_limits<float>::max();
constexpr float kThin = std::numeric_limits<float>::epsilon();

/// From this component on, the normal counts as lying on the axis.
constexpr float kAlongAxis = 1.0f - std::numeric_limits<float>::epsilon();

float boundsSize(float normalComponent)
{
    return kAlongAxis <= std::fabs(normalComponent) ? kThin : kLargest;
}

} // namespace

PointablePlane::PointablePlane()
    : PointablePlane(Posef::Identity(), Vector2f(kLargest, kLargest))
{
}

PointablePlane::PointablePlane(const Posef& pose, const Vector2f& size)
    : size_(size)
{
    PointablePlane::setPose(pose);
}

void PointablePlane::setPose(const Posef& pose)
{
    pose_ = pose;
    axes_ = PlaneAxes(pose.rotation);
    plane_ = velk::math::Plane(pose.translation, axes_.getZ());
    changed();
}

void PointablePlane::setSize(const Vector2f& size)
{
    size_ = size;
    changed();
}

Vector3f PointablePlane::getNormal() const
{
    return plane_.getNormal();
}

bool PointablePlane::raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const
{
    hit.point = ray.origin;
    hit.distance = 0.0f;
    hit.normal = plane_.getNormal();

    const float height = plane_.getSignedDistanceToPlane(ray.origin);
    if (0.0f > height) {
        return false;
    }
    if (maxDistance > 0.0f && height > maxDistance) {
        return false;
    }

    float t = 0.0f;
    if (!plane_.raycast(ray, t)) {
        return false;
    }
    hit.point = ray.origin + ray.direction.Normalized() * t;
    hit.distance = t;

    const Vector3f offset = hit.point - pose_.translation;
    return !(std::fabs(offset.Dot(axes_.getX())) > size_.x) &&
           !(std::fabs(offset.Dot(axes_.getY())) > size_.y);
}

bool PointablePlane::closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const
{
    const float distance = std::fabs(plane_.getSignedDistanceToPlane(point));
    if (maxDistance > 0.0f && distance > maxDistance) {
        return false;
    }
    hit.point = plane_.getClosestPointOnSurface(point);
    hit.distance = distance;
    hit.normal = plane_.getNormal();
    return true;
}

velk::math::AxisAlignedBox PointablePlane::getBounds() const
{
    const Vector3f normal = plane_.getNormal();
    const Vector3f size(boundsSize(normal.x), boundsSize(normal.y), boundsSize(normal.z));
    return velk::math::AxisAlignedBox(pose_.translation, size);
}

} // namespace velk::interaction::surface
