// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Ray.h"

#include <algorithm>

namespace velk::math
{

/// A box along the axes of its frame, held twice over: as bounds for containment, rays and clipping, as
/// centre and half size for the nearest face. Whoever writes the bounds directly must call
/// calculatedCentroidAndSizeFromBounds() before the nearest face is asked for.
struct AxisAlignedBox
{
    Vector3f lowerBound;
    Vector3f upperBound;
    Vector3f centroid;
    Vector3f halfSize;

    /// The faces, in the order that decides ties: the later one wins.
    enum class BoxSide
    {
        NegativeX,
        PositiveX,
        NegativeY,
        PositiveY,
        NegativeZ,
        PositiveZ
    };

    AxisAlignedBox() = default;

    /// `size` is the full size.
    AxisAlignedBox(const Vector3f& inCentroid, const Vector3f& size)
        : lowerBound(inCentroid - size * 0.5f)
        , upperBound(inCentroid + size * 0.5f)
        , centroid(inCentroid)
        , halfSize(size * 0.5f)
    {
    }

    void calculatedCentroidAndSizeFromBounds()
    {
        halfSize = (upperBound - lowerBound) * 0.5f;
        centroid = lowerBound + halfSize;
    }

    /// Inclusive on every face.
    bool isWithinVolume(const Vector3f& point) const
    {
        return point.x >= lowerBound.x && upperBound.x >= point.x && point.y >= lowerBound.y &&
               upperBound.y >= point.y && point.z >= lowerBound.z && upperBound.z >= point.z;
    }

    /// Writes the intersection with `other` to `result`, which may be this box. Boxes that only touch
    /// intersect. False, with `result` zeroed, if they have nothing in common.
    bool clip(const AxisAlignedBox& other, AxisAlignedBox& result)
    {
        const AxisAlignedBox copy = *this;
        const Vector3f lower = Vector3f::Max(copy.lowerBound, other.lowerBound);
        const Vector3f upper = Vector3f::Min(copy.upperBound, other.upperBound);
        result = AxisAlignedBox();
        if (lower.x > upper.x || lower.y > upper.y || lower.z > upper.z) {
            return false;
        }
        result.lowerBound = lower;
        result.upperBound = upper;
        result.calculatedCentroidAndSizeFromBounds();
        return true;
    }

    /// The slab method (Kay and Kajiya, "Ray tracing complex scenes", 1986). `distance` is in lengths of
    /// the ray's direction. From inside the box it is negative, to the face by which the ray came in.
    bool raycast(const Ray& ray, float& distance) const
    {
        const Vector3f inverse(1.0f / ray.direction.x, 1.0f / ray.direction.y, 1.0f / ray.direction.z);
        const Vector3f t1((lowerBound.x - ray.origin.x) * inverse.x,
                          (lowerBound.y - ray.origin.y) * inverse.y,
                          (lowerBound.z - ray.origin.z) * inverse.z);
        const Vector3f t2((upperBound.x - ray.origin.x) * inverse.x,
                          (upperBound.y - ray.origin.y) * inverse.y,
                          (upperBound.z - ray.origin.z) * inverse.z);
        // A ray that lies in the plane of a face has a NaN here (0 times infinity). The order of the
        // operands decides whether it hits.
        const float tMin =
            std::max(std::max(std::min(t1.x, t2.x), std::min(t1.y, t2.y)), std::min(t1.z, t2.z));
        const float tMax =
            std::min(std::min(std::max(t1.x, t2.x), std::max(t1.y, t2.y)), std::max(t1.z, t2.z));

        const bool behindRay = 0.0f > tMax;
        const bool slabsApart = tMin > tMax;
        if (behindRay || slabsApart) {
            distance = tMax;
            return false;
        }
        distance = tMin;
        return true;
    }

    /// The face nearest to a point inside, the face of greatest excess for a point outside.
    BoxSide closestBoxSide(const Vector3f& point) const
    {
        const Vector3f d = point - centroid;
        const float distances[] = {-d.x - halfSize.x, d.x - halfSize.x,  -d.y - halfSize.y,
                                   d.y - halfSize.y,  -d.z - halfSize.z, d.z - halfSize.z};
        int closest = 0;
        for (int side = 1; side < 6; ++side) {
            // A tie, or a NaN, goes to the later side.
            if (!(distances[closest] > distances[side])) {
                closest = side;
            }
        }
        return static_cast<BoxSide>(closest);
    }

    /// The outward normal of closestBoxSide().
    Vector3f closestSurfaceNormal(const Vector3f& point) const
    {
        switch (closestBoxSide(point)) {
        case BoxSide::NegativeX:
            return Vector3f(-1.0f, 0.0f, 0.0f);
        case BoxSide::PositiveX:
            return Vector3f(1.0f, 0.0f, 0.0f);
        case BoxSide::NegativeY:
            return Vector3f(0.0f, -1.0f, 0.0f);
        case BoxSide::PositiveY:
            return Vector3f(0.0f, 1.0f, 0.0f);
        case BoxSide::NegativeZ:
            return Vector3f(0.0f, 0.0f, -1.0f);
        case BoxSide::PositiveZ:
            return Vector3f(0.0f, 0.0f, 1.0f);
        }
        return Vector3f::Zero();
    }

    /// A point inside goes to its nearest face.
    Vector3f closestPointOnSurface(const Vector3f& point) const
    {
        Vector3f clamped(std::min(std::max(point.x, lowerBound.x), upperBound.x),
                         std::min(std::max(point.y, lowerBound.y), upperBound.y),
                         std::min(std::max(point.z, lowerBound.z), upperBound.z));
        if (!isWithinVolume(point)) {
            return clamped;
        }
        switch (closestBoxSide(point)) {
        case BoxSide::NegativeX:
            clamped.x = lowerBound.x;
            break;
        case BoxSide::PositiveX:
            clamped.x = upperBound.x;
            break;
        case BoxSide::NegativeY:
            clamped.y = lowerBound.y;
            break;
        case BoxSide::PositiveY:
            clamped.y = upperBound.y;
            break;
        case BoxSide::NegativeZ:
            clamped.z = lowerBound.z;
            break;
        case BoxSide::PositiveZ:
            clamped.z = upperBound.z;
            break;
        }
        return clamped;
    }
};

} // namespace velk::math
