// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The rules by which a press begins: the finger's path since the last frame goes inward through the surface,
// and began clearly above it.
#include "velk_core/interaction/poke/PokeSearch.h"

#include "math/Ray.h"
#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using surface::SurfaceHit;
using witness::judge;
using witness::Rule;

PokeCandidate PokeSearch::findPressed(const Interactables& inRange)
{
    PokeCandidate best;
    for (PokeInteractable* interactable : inRange) {
        PokeCandidate candidate;
        if (!isPressed(*interactable, candidate)) {
            continue;
        }
        const bool winsByScore = areEquallyFar(candidate.distance, best.distance) &&
                                 (best.interactable == nullptr || candidate.hasHigherScoreThan(best));
        if (judge(Rule::PokePressNearest, winsByScore || candidate.isNearerThan(best), candidate.distance,
                  best.distance, *interactable)) {
            best = candidate;
        }
    }
    return best;
}

// On true, the candidate is ranked by the height at which the finger's path began, and by the distance along
// the surface at which it went through: not by where the finger is now.
bool PokeSearch::isPressed(PokeInteractable& interactable, PokeCandidate& candidate)
{
    PokeFrame::Hits hits;
    if (!frame_.getHits(interactable, hits)) {
        return false;
    }
    // Must have been clearly above: guards against a press from within, or by a finger that began under it.
    const Vector3f start = frame_.getPreviousOriginCarriedBy(interactable);
    if (!passesEnterHoverDistanceCheck(Rule::PokePressEntry, start, interactable)) {
        return false;
    }
    SurfaceHit crossing;
    if (!crosses(interactable, hits.backing, start, crossing)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, crossing.point, config_.radius);
    const float farthest = hoverTangentLimit(interactable);
    if (!judge(Rule::PokePressReach, tangent <= farthest, tangent, farthest, interactable)) {
        return false;
    }
    candidate = {&interactable, (start - crossing.point).Dot(crossing.normal), tangent};
    return true;
}

// The path from `start` to the finger, seen from the surface. It crosses when it goes inward, and either the
// centre went through or the skin is at or through.
bool PokeSearch::crosses(const PokeInteractable& interactable, const SurfaceHit& backing,
                         const Vector3f& start, SurfaceHit& crossing) const
{
    Vector3f direction = frame_.getOrigin() - start;
    const float length = direction.Length();
    if (!judge(Rule::PokePressMovement, length != 0.0f, length, 0.0f, interactable)) {
        return false;
    }
    direction /= length;
    const float inward = direction.Dot(backing.normal);
    if (!judge(Rule::PokePressDirection, inward < 0.0f, inward, 0.0f, interactable)) {
        return false;
    }
    const surface::ISurface& surface = interactable.getSurfacePatch().getBackingSurface();
    const bool isAhead = surface.raycast({start, direction}, crossing, surface::kNoLimit);
    if (judge(Rule::PokePressCrossing, isAhead && crossing.distance <= length,
              isAhead ? crossing.distance : witness::kNoNumber, length, interactable)) {
        return true;
    }
    const float above = computeDistanceAbove(interactable, frame_.getOrigin(), config_.radius);
    crossing = {backing.point, backing.normal, above};
    return judge(Rule::PokePressDepth, above <= 0.0f, above, 0.0f, interactable);
}

bool PokeSearch::isVetoed(const PokeCandidate& pressed, const Vector3f& touchPoint,
                          const Interactables& inRange)
{
    return std::any_of(inRange.begin(), inRange.end(), [&](const PokeInteractable* interactable) {
        return interactable != pressed.interactable && vetoes(*interactable, pressed, touchPoint);
    });
}

// The touch point chosen for the press lies closely over this surface, within its reach and no farther along
// it than the press itself.
bool PokeSearch::vetoes(const PokeInteractable& interactable, const PokeCandidate& pressed,
                        const Vector3f& touchPoint)
{
    PokeFrame::Hits hits;
    if (!frame_.getHits(interactable, hits) ||
        !passesEnterHoverDistanceCheck(Rule::PokeVetoEntry, frame_.getPreviousOriginCarriedBy(interactable),
                                       interactable)) {
        return false;
    }
    const float height = (touchPoint - hits.backing.point).Dot(hits.backing.normal);
    const bool losesByScore = std::fabs(height) < config_.equalDistanceEpsilon &&
                              pressed.interactable->getTiebreakerScore() > interactable.getTiebreakerScore();
    if (judge(Rule::PokeVetoScore, losesByScore, height, config_.equalDistanceEpsilon, interactable)) {
        return false;
    }
    const float close = interactable.getCloseDistanceThreshold();
    if (!judge(Rule::PokeVetoHeight, height > 0.0f, height, 0.0f, interactable) ||
        !judge(Rule::PokeVetoDistance, height <= close, height, close, interactable)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, touchPoint, config_.radius);
    const float farthest = interactable.getEnterHoverTangent();
    return judge(Rule::PokeVetoReach, tangent <= farthest, tangent, farthest, interactable) &&
           judge(Rule::PokeVetoNearer, tangent <= pressed.tangent, tangent, pressed.tangent, interactable);
}

} // namespace velk::interaction
