// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeRelease.h"

#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"

namespace velk::interaction::poke_release
{

using poke_geometry::computeDepth;
using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;

bool hasLeftSurface(const PokeInteractable& interactable, const Vector3f& origin, float radius,
                    float surfaceReleaseThreshold)
{
    return computeDistanceAbove(interactable, origin, radius) > surfaceReleaseThreshold;
}

bool shouldCancel(const PokeInteractable& interactable, const Vector3f& origin, float radius)
{
    const float normalLimit = interactable.getCancelSelectNormal();
    if (normalLimit > 0.0f && computeDepth(interactable, origin, radius) > normalLimit) {
        return true;
    }
    const float tangentLimit = interactable.getCancelSelectTangent();
    return tangentLimit > 0.0f && computeTangentDistance(interactable, origin, radius) > tangentLimit;
}

} // namespace velk::interaction::poke_release
