// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The rules by which a press begins: the finger's path since the last frame goes inward through the surface,
// and began clearly above it.
#include "velk_core/interaction/poke/PokeSearch.h"

#include "math/Ray.h"
#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using surface::SurfaceHit;

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
        if (winsByScore || candidate.isNearerThan(best)) {
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
    if (!passesEnterHoverDistanceCheck(start, interactable)) {
        return false;
    }
    SurfaceHit crossing;
    if (!crosses(interactable, hits.backing, start, crossing)) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, crossing.point, config_.radius);
    if (!(tangent <= hoverTangentLimit(interactable))) {
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
    if (length == 0.0f) {
        return false;
    }
    direction /= length;
    if (!(direction.Dot(backing.normal) < 0.0f)) {
        return false;
    }
    const surface::ISurface& surface = interactable.getSurfacePatch().getBackingSurface();
    if (surface.raycast({start, direction}, crossing, surface::kNoLimit) && crossing.distance <= length) {
        return true;
    }
    const float above = computeDistanceAbove(interactable, frame_.getOrigin(), config_.radius);
    crossing = {backing.point, backing.normal, above};
    return above <= 0.0f;
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
        !passesEnterHoverDistanceCheck(frame_.getPreviousOriginCarriedBy(interactable), interactable)) {
        return false;
    }
    const float height = (touchPoint - hits.backing.point).Dot(hits.backing.normal);
    if (std::fabs(height) < config_.equalDistanceEpsilon &&
        pressed.interactable->getTiebreakerScore() > interactable.getTiebreakerScore()) {
        return false;
    }
    if (!(height > 0.0f && height <= interactable.getCloseDistanceThreshold())) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, touchPoint, config_.radius);
    return tangent <= interactable.getEnterHoverTangent() && tangent <= pressed.tangent;
}

} // namespace velk::interaction
