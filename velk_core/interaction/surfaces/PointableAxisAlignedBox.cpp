// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/PointableAxisAlignedBox.h"

namespace velk::interaction::surface
{

PointableAxisAlignedBox::PointableAxisAlignedBox(const TAL::Vector3<float>& centroid,
                                                 const TAL::Vector3<float>& size)
    : box_(centroid, size)
{
}

void PointableAxisAlignedBox::setBounds(const TAL::Vector3<float>& lower, const TAL::Vector3<float>& upper)
{
    box_.lowerBound = lower;
    box_.upperBound = upper;
    box_.calculatedCentroidAndSizeFromBounds();
}

void PointableAxisAlignedBox::setCentroidAndSize(const TAL::Vector3<float>& centroid,
                                                 const TAL::Vector3<float>& size)
{
    setBounds(centroid - size * 0.5f, centroid + size * 0.5f);
}

void PointableAxisAlignedBox::setLowerBound(const TAL::Vector3<float>& lower)
{
    setBounds(lower, getUpperBound());
}

void PointableAxisAlignedBox::setUpperBound(const TAL::Vector3<float>& upper)
{
    setBounds(getLowerBound(), upper);
}

void PointableAxisAlignedBox::setCentroid(const TAL::Vector3<float>& centroid)
{
    setCentroidAndSize(centroid, getSize());
}

void PointableAxisAlignedBox::setSize(const TAL::Vector3<float>& size)
{
    setCentroidAndSize(getCenter(), size);
}

TAL::Vector3<float> PointableAxisAlignedBox::getLowerBound() const
{
    return box_.lowerBound;
}

TAL::Vector3<float> PointableAxisAlignedBox::getUpperBound() const
{
    return box_.upperBound;
}

TAL::Vector3<float> PointableAxisAlignedBox::getCenter() const
{
    return box_.centroid;
}

TAL::Vector3<float> PointableAxisAlignedBox::getSize() const
{
    return box_.halfSize * 2.0f;
}

TAL::Pose<float> PointableAxisAlignedBox::getPose() const
{
    return TAL::Pose<float>(TAL::Quat<float>::Identity(), box_.centroid);
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

bool PointableAxisAlignedBox::closestSurfacePoint(const TAL::Vector3<float>& point, SurfaceHit& hit,
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
