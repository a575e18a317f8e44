// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Plane.h"
#include "velk_core/interaction/surfaces/ISurface.h"
#include "velk_core/interaction/surfaces/PlaneAxes.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"

namespace velk::interaction::surface
{

/// A rectangle whose front is the local +z of its pose. Rays hit the front only, within the rectangle;
/// the closest point is that of the infinite plane, from either side.
class PointablePlane : public ISurface, public ChangeSource
{
public:
    /// In effect infinite, at the identity.
    PointablePlane();
    PointablePlane(const Posef& pose, const Vector2f& size);

    void setPose(const Posef& pose);

    /// How far the rectangle reaches from its centre along local x and y: half-widths.
    void setSize(const Vector2f& size);
    Vector2f getSize() const { return size_; }

    Vector3f getNormal() const;

    /// Of its own frame, in world space.
    const PlaneAxes& getAxes() const { return axes_; }

    Posef getPose() const override { return pose_; }

    /// `maxDistance` limits the height of the ray's origin over the plane, not the length of the ray.
    /// The hit's distance is in units of space. A ray that starts on the plane misses.
    bool raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const override;

    /// Looks neither at the size nor at the side. Leaves `hit` alone where it returns false.
    bool closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const override;

    /// Thin along a normal that lies on a world axis, endless otherwise, whatever the size.
    velk::math::AxisAlignedBox getBounds() const override;

private:
    Posef pose_;
    // Derived from the pose.
    velk::math::Plane plane_;
    PlaneAxes axes_;
    Vector2f size_;
};

} // namespace velk::interaction::surface
