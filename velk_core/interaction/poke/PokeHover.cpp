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
#include "velk_core/interaction/poke/PokeInteractor.h"

#include "velk_core/interaction/poke/PokeGeometry.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

using poke_geometry::computeDepth;
using poke_geometry::computeDistanceAbove;
using poke_geometry::computeTangentDistance;
using surface::SurfaceHit;

// The broad test before anything exact: nothing farther than this frame's movement and the enter limits can
// matter. A surface first met in this frame always passes.
bool PokeInteractor::interactableInRange(const PokeInteractable& interactable) const
{
    if (previousSurfaceTransforms_.find(interactable.getSlot()) == nullptr) {
        return true;
    }
    const float moved = origin_.Distance(previousOriginCarriedBy(interactable));
    const float enterLimit =
        std::max(interactable.getEnterHoverTangent(), interactable.getEnterHoverNormal());
    const float reach = moved + config_.radius + enterLimit + config_.equalDistanceEpsilon +
                        interactable.getCloseDistanceThreshold();
    SurfaceHit hit;
    return interactable.getSurfacePatch().closestSurfacePoint(origin_, hit, reach);
}

PokeInteractable* PokeInteractor::computeHoverCandidate(const Interactables& inRange)
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
        if (winsByScore || candidate.isNearerThan(best)) {
            best = candidate;
        }
    }
    if (best.interactable != nullptr) {
        takeContactFrom(*best.interactable);
    }
    return best.interactable;
}

// On true, the candidate is ranked by its height and its distance along the surface.
bool PokeInteractor::canHover(PokeInteractable& interactable, PokeCandidate& candidate)
{
    SurfaceHit backing;
    if (!getHits(interactable, backing)) {
        return false;
    }
    if (!passesEnterHoverDistanceCheck(origin_, interactable) &&
        !passesEnterHoverDistanceCheck(previousOrigin_, interactable)) {
        return false;
    }
    if (!isInFront(backing)) {
        return false;
    }
    const float above = computeDistanceAbove(interactable, origin_, config_.radius);
    if (!(above <= hoverNormalLimit(interactable))) {
        return false;
    }
    const float tangent = computeTangentDistance(interactable, origin_, config_.radius);
    if (!(tangent <= hoverTangentLimit(interactable))) {
        return false;
    }
    candidate = {&interactable, above, tangent};
    return true;
}

bool PokeInteractor::getHits(const PokeInteractable& interactable, SurfaceHit& backing)
{
    SurfaceHit patch;
    return getBackingHit(interactable, backing) && getPatchHit(interactable, patch);
}

// A finger begins from above: not at the surface, not under it, and with a minimum height not within that
// height either, unless a finger is already deeper there. The candidate of the last search passes anyway.
bool PokeInteractor::passesEnterHoverDistanceCheck(const Vector3f& point,
                                                   const PokeInteractable& interactable) const
{
    if (&interactable == hoverInteractable_) {
        return true;
    }
    float threshold = 0.0f;
    if (interactable.getMinThresholds().enabled) {
        threshold = std::min(interactable.getMinThresholds().minNormal, minPokeDepth(interactable));
    }
    return computeDistanceAbove(interactable, point, config_.radius) > threshold;
}

// How deep the shallowest of the fingers already there is.
float PokeInteractor::minPokeDepth(const PokeInteractable& interactable) const
{
    float depth = interactable.getExitHoverNormal();
    for (const PokeInteractor* interactor : interactable.getInteractors()) {
        depth = std::min(depth, computeDepth(interactable, interactor->getOrigin(), config_.radius));
    }
    return depth;
}

bool PokeInteractor::isInFront(const SurfaceHit& backing) const
{
    const Vector3f offset = origin_ - backing.point;
    return offset.Length() != 0.0f && offset.Dot(backing.normal) > 0.0f;
}

float PokeInteractor::hoverNormalLimit(const PokeInteractable& interactable) const
{
    return &interactable == hoverInteractable_ ? interactable.getExitHoverNormal()
                                               : interactable.getEnterHoverNormal();
}

float PokeInteractor::hoverTangentLimit(const PokeInteractable& interactable) const
{
    return &interactable == hoverInteractable_ ? interactable.getExitHoverTangent()
                                               : interactable.getEnterHoverTangent();
}

bool PokeInteractor::areEquallyFar(float distance, float otherDistance) const
{
    return std::fabs(distance - otherDistance) < config_.equalDistanceEpsilon;
}

void PokeInteractor::doHoverUpdate()
{
    SurfaceHit hit;
    if (interactable() != nullptr && getBackingHit(*interactable(), hit)) {
        touchPoint_ = hit.point;
        touchNormal_ = hit.normal;
    }
    if (recoilInteractable_ == nullptr) {
        return;
    }
    if (!surfaceUpdate(recoilInteractable_)) {
        endRecoil();
    } else if (shouldCancel(*recoilInteractable_)) {
        cancel(*recoilInteractable_);
    }
}

} // namespace velk::interaction
