// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"

namespace velk::interaction::surface
{

PointableAxisAlignedBox::PointableAxisAlignedBox(const Vector3f& centroid, const Vector3f& size)
    : box_(centroid, size)
{
}

void PointableAxisAlignedBox::setBounds(const Vector3f& lower, const Vector3f& upper)
{
    box_.lowerBound = lower;
    box_.upperBound = upper;
    box_.calculatedCentroidAndSizeFromBounds();
    changed();
}

void PointableAxisAlignedBox::setCentroidAndSize(const Vector3f& centroid, const Vector3f& size)
{
    setBounds(centroid - size * 0.5f, centroid + size * 0.5f);
}

void PointableAxisAlignedBox::setLowerBound(const Vector3f& lower)
{
    setBounds(lower, getUpperBound());
}

void PointableAxisAlignedBox::setUpperBound(const Vector3f& upper)
{
    setBounds(getLowerBound(), upper);
}

void PointableAxisAlignedBox::setCentroid(const Vector3f& centroid)
{
    setCentroidAndSize(centroid, getSize());
}

void PointableAxisAlignedBox::setSize(const Vector3f& size)
{
    setCentroidAndSize(getCenter(), size);
}

Vector3f PointableAxisAlignedBox::getLowerBound() const
{
    return box_.lowerBound;
}

Vector3f PointableAxisAlignedBox::getUpperBound() const
{
    return box_.upperBound;
}

Vector3f PointableAxisAlignedBox::getCenter() const
{
    return box_.centroid;
}

Vector3f PointableAxisAlignedBox::getSize() const
{
    return box_.halfSize * 2.0f;
}

Posef PointableAxisAlignedBox::getPose() const
{
    return Posef(Quatf::Identity(), box_.centroid);
}

bool PointableAxisAlignedBox::raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const
{
    float t = 0.0f;
    const bool found = box_.raycast(ray, t);
    if (maxDistance > 0.0f && t > maxDistance) {
        return false;
    }
    if (!found) {
        return false;
    }
    hit.point = ray.origin + ray.direction * t;
    hit.normal = box_.closestSurfaceNormal(hit.point);
    hit.distance = t;
    return true;
}

bool PointableAxisAlignedBox::closestSurfacePoint(const Vector3f& point, SurfaceHit& hit,
                                                  float maxDistance) const
{
    hit.point = box_.closestPointOnSurface(point);
    hit.normal = box_.closestSurfaceNormal(point);
    hit.distance = (hit.point - point).Length();
    return !(maxDistance > 0.0f && hit.distance > maxDistance);
}

velk::math::AxisAlignedBox PointableAxisAlignedBox::getBounds() const
{
    return box_;
}

} // namespace velk::interaction::surface
