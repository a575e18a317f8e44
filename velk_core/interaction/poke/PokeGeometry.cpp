// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeGeometry.h"

#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"

#include <algorithm>

namespace velk::interaction::poke_geometry
{

using surface::SurfaceHit;

float computeDistanceAbove(const PokeInteractable& interactable, const Vector3f& point, float radius)
{
    SurfaceHit hit;
    interactable.closestBackingSurfaceHit(point, hit);
    return (point - hit.point).Dot(hit.normal) - radius;
}

float computeDepth(const PokeInteractable& interactable, const Vector3f& point, float radius)
{
    return std::max(0.0f, -computeDistanceAbove(interactable, point, radius));
}

float computeDistanceFrom(const PokeInteractable& interactable, const Vector3f& point, float radius)
{
    SurfaceHit hit;
    interactable.closestSurfacePatchHit(point, hit);
    return (point - hit.point).Length() - radius;
}

float computeLateralDistanceToClosestPoint(const Vector3f& point, float radius, const Vector3f& closest,
                                           const Vector3f& normal)
{
    const Vector3f offset = point - closest;
    return (offset - offset.Dot(normal) * normal).Length() - radius;
}

float computeTangentDistance(const PokeInteractable& interactable, const Vector3f& point, float radius)
{
    SurfaceHit patch;
    SurfaceHit backing;
    interactable.closestSurfacePatchHit(point, patch);
    interactable.closestBackingSurfaceHit(point, backing);
    return computeLateralDistanceToClosestPoint(point, radius, patch.point, backing.normal);
}

} // namespace velk::interaction::poke_geometry
