// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/AxisAlignedBox.h"
#include "math/Vector3.h"
#include "velk_core/interaction/surfaces/ISurface.h"

namespace velk::interaction::surface
{

/// A box along the world's axes, hit from outside and from within.
class PointableAxisAlignedBox : public ISurface
{
public:
    /// `size` is the full size, here and in all the other operations.
    PointableAxisAlignedBox(const TAL::Vector3<float>& centroid, const TAL::Vector3<float>& size);

    /// Doesn't order the bounds: with a lower above an upper one, nothing is within.
    void setBounds(const TAL::Vector3<float>& lower, const TAL::Vector3<float>& upper);

    /// Goes through the bounds, so the centre can differ from `centroid` in its last bit.
    void setCentroidAndSize(const TAL::Vector3<float>& centroid, const TAL::Vector3<float>& size);
    void setLowerBound(const TAL::Vector3<float>& lower);
    void setUpperBound(const TAL::Vector3<float>& upper);
    void setCentroid(const TAL::Vector3<float>& centroid);
    void setSize(const TAL::Vector3<float>& size);

    TAL::Vector3<float> getLowerBound() const;
    TAL::Vector3<float> getUpperBound() const;
    TAL::Vector3<float> getCenter() const;
    TAL::Vector3<float> getSize() const;

    /// The centre, unrotated.
    TAL::Pose<float> getPose() const override;

    /// Distances, and `maxDistance`, are along the ray in lengths of its direction. From within the box
    /// the distance is negative: the hit is where the ray came in, behind its origin.
    bool raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const override;

    /// A point within goes to its nearest face. The normal is that of the face nearest to the query's
    /// point. `hit` is filled in any case.
    bool closestSurfacePoint(const TAL::Vector3<float>& point, SurfaceHit& hit,
                             float maxDistance) const override;

    velk::math::AxisAlignedBox getBounds() const override;

private:
    velk::math::AxisAlignedBox box_;
};

} // namespace velk::interaction::surface
