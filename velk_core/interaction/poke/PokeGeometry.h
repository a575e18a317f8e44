// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction
{
class PokeInteractable;
}

/// Distances between a finger's sphere and a surface, measured from the sphere's skin, in metres.
///
///            o  point (centre of the sphere)
///           ( )  radius
///            |  above > 0
///     =======+=============   backing surface
///            |  above < 0, depth = -above
///
/// They ask the surface itself, since the point need not be this frame's.
namespace velk::interaction::poke_geometry
{

/// Height of the skin over the backing surface; negative under it.
float computeDistanceAbove(const PokeInteractable& interactable, const Vector3f& point, float radius);

/// How far the skin is under the backing surface; 0 above it.
float computeDepth(const PokeInteractable& interactable, const Vector3f& point, float radius);

/// Straight distance from the skin to the patch.
float computeDistanceFrom(const PokeInteractable& interactable, const Vector3f& point, float radius);

/// Distance from the skin to `closest`, with the part along `normal` left out.
float computeLateralDistanceToClosestPoint(const Vector3f& point, float radius, const Vector3f& closest,
                                           const Vector3f& normal);

/// Distance along the surface from the skin to the patch: `-radius` over the patch, and not floored at 0, so
/// a limit of 0 admits points up to one radius beyond the edge.
float computeTangentDistance(const PokeInteractable& interactable, const Vector3f& point, float radius);

} // namespace velk::interaction::poke_geometry
