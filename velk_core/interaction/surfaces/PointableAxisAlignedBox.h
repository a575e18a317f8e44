// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
#include "velk_core/interaction/surfaces/ISurface.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"

namespace velk::interaction::surface
{

/// A box along the world's axes, hit from outside and from within.
class PointableAxisAlignedBox : public ISurface, public ChangeSource
{
public:
    /// `size` is the full size, here and in all the other operations.
    PointableAxisAlignedBox(const Vector3f& centroid, const Vector3f& size);

    /// Doesn't order the bounds: with a lower above an upper one, nothing is within.
    void setBounds(const Vector3f& lower, const Vector3f& upper);

    /// Goes through the bounds, so the centre can differ from `centroid` in its last bit.
    void setCentroidAndSize(const Vector3f& centroid, const Vector3f& size);
    void setLowerBound(const Vector3f& lower);
    void setUpperBound(const Vector3f& upper);
    void setCentroid(const Vector3f& centroid);
    void setSize(const Vector3f& size);

    Vector3f getLowerBound() const;
    Vector3f getUpperBound() const;
    Vector3f getCenter() const;
    Vector3f getSize() const;

    /// The centre, unrotated.
    Posef getPose() const override;

    /// Distances, and `maxDistance`, are along the ray in lengths of its direction. From within the box
    /// the distance is negative: the hit is where the ray came in, behind its origin.
    bool raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const override;

    /// A point within goes to its nearest face. The normal is that of the face nearest to the query's
    /// point. `hit` is filled in any case.
    bool closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const override;

    velk::math::AxisAlignedBox getBounds() const override;

private:
    velk::math::AxisAlignedBox box_;
};

} // namespace velk::interaction::surface
