// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeRelease.h"

#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/witness/Witness.h"

namespace velk::interaction::poke_release
{

using poke_geometry::computeDepth;
using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using witness::judge;
using witness::Rule;

bool hasLeftSurface(const PokeInteractable& interactable, const Vector3f& origin, float radius,
                    float surfaceReleaseThreshold)
{
    const float above = computeDistanceAbove(interactable, origin, radius);
    return judge(Rule::PokeReleaseHeight, above > surfaceReleaseThreshold, above, surfaceReleaseThreshold,
                 interactable);
}

bool shouldCancel(const PokeInteractable& interactable, const Vector3f& origin, float radius)
{
    const float normalLimit = interactable.getCancelSelectNormal();
    if (normalLimit > 0.0f) {
        const float depth = computeDepth(interactable, origin, radius);
        if (judge(Rule::PokeCancelDepth, depth > normalLimit, depth, normalLimit, interactable)) {
            return true;
        }
    }
    const float tangentLimit = interactable.getCancelSelectTangent();
    if (!(tangentLimit > 0.0f)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, origin, radius);
    return judge(Rule::PokeCancelReach, tangent > tangentLimit, tangent, tangentLimit, interactable);
}

} // namespace velk::interaction::poke_release
