// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The rules by which a finger hovers. Heights of the skin over the surface, with the default settings:
//
//    0.05  - - - - - - - - - -  exitHoverNormal
//             stays
//    0.03  - - - - - - - - - -  enterHoverNormal
//             begins, stays     the skin must be strictly above the surface, or in the last frame have been
//    0     ===================  surface
//             stays
//   -radius  - - - - - - - - -  the centre is on the surface; no hover from here on down
//
// "Stays" is for the result of the last search, "begins" for all others; the same goes for the limits along
// the surface. The broad test reaches only as far as the enter limits and the frame's own movement, so a
// finger that rests above about enterHoverNormal loses its hover after the frame in which it rose there.
#include "velk_core/interaction/poke/PokeSearch.h"

#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/witness/Witness.h"

namespace velk::interaction
{

using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using surface::SurfaceHit;
using witness::judge;
using witness::Rule;

PokeCandidate PokeSearch::findHovered(const Interactables& inRange)
{
    PokeCandidate best;
    for (PokeInteractable* interactable : inRange) {
        PokeCandidate candidate;
        if (!canHover(*interactable, candidate)) {
            continue;
        }
        const bool winsByScore = best.interactable != nullptr &&
                                 areEquallyFar(candidate.distance, best.distance) &&
                                 candidate.hasHigherScoreThan(best);
        if (judge(Rule::PokeHoverNearest, winsByScore || candidate.isNearerThan(best), candidate.distance,
                  best.distance, *interactable)) {
            best = candidate;
        }
    }
    return best;
}

// On true, the candidate is ranked by its height and its distance along the surface.
bool PokeSearch::canHover(PokeInteractable& interactable, PokeCandidate& candidate)
{
    const Vector3f& origin = frame_.getOrigin();
    PokeFrame::Hits hits;
    if (!frame_.getHits(interactable, hits)) {
        return false;
    }
    if (!passesEnterHoverDistanceCheck(Rule::PokeHoverEntry, origin, interactable) &&
        !passesEnterHoverDistanceCheck(Rule::PokeHoverEntryBefore, frame_.getPreviousOrigin(),
                                       interactable)) {
        return false;
    }
    if (!isInFront(hits.backing, interactable)) {
        return false;
    }
    const float above = computeDistanceAbove(interactable, origin, config_.radius);
    const float highest = hoverNormalLimit(interactable);
    if (!judge(Rule::PokeHoverHeight, above <= highest, above, highest, interactable)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, origin, config_.radius);
    const float farthest = hoverTangentLimit(interactable);
    if (!judge(Rule::PokeHoverReach, tangent <= farthest, tangent, farthest, interactable)) {
        return false;
    }
    candidate = {&interactable, above, tangent};
    return true;
}

bool PokeSearch::isInFront(const SurfaceHit& backing, const PokeInteractable& interactable) const
{
    const Vector3f offset = frame_.getOrigin() - backing.point;
    const float height = offset.Dot(backing.normal);
    return judge(Rule::PokeHoverSide, offset.Length() != 0.0f && height > 0.0f, height, 0.0f, interactable);
}

float PokeSearch::hoverNormalLimit(const PokeInteractable& interactable) const
{
    return &interactable == lastFound_ ? interactable.getExitHoverNormal()
                                       : interactable.getEnterHoverNormal();
}

} // namespace velk::interaction
