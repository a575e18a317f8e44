// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Math.h"
#include "math/Ray.h"

#include <cmath>

namespace velk::math
{

/// An infinite oriented plane, the points p with normal.Dot(p) + distance == 0. Its front is the side
/// that the normal points to.
struct Plane
{
    Vector3f normal;
    float distance = 0.0f;

    Plane() = default;

    Plane(const Vector3f& inNormal, float inDistance)
        : normal(inNormal.Normalized())
        , distance(inDistance)
    {
    }

    /// The plane through `point`.
    Plane(const Vector3f& point, const Vector3f& inNormal)
        : Plane(inNormal, -point.Dot(inNormal.Normalized()))
    {
    }

    Vector3f getNormal() const { return normal; }

    /// Positive in front.
    float getSignedDistanceToPlane(const Vector3f& point) const { return normal.Dot(point) + distance; }

    Vector3f getClosestPointOnSurface(Vector3f point) const
    {
        return point - normal * getSignedDistanceToPlane(point);
    }

    /// Hits from either side. `hitDistance` is in units of space, whatever the length of the ray's
    /// direction, and is written also on a miss: negative for a plane behind the ray, 0 for a ray
    /// parallel to it. A ray that starts on the plane misses.
    bool raycast(const Ray& ray, float& hitDistance) const
    {
        const float denominator = ray.direction.Normalized().Dot(normal);
        if (TAL::Math<float>::Tolerance() > std::fabs(denominator)) {
            hitDistance = 0.0f;
            return false;
        }
        hitDistance = -getSignedDistanceToPlane(ray.origin) / denominator;
        return hitDistance > 0.0f;
    }
};

} // namespace velk::math
