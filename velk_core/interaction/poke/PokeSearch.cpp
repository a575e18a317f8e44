// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// What the rules of a hover and of a press share.
#include "velk_core/interaction/poke/PokeSearch.h"

#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

using poke_geometry::computeDepth;
using poke_geometry::computeDistanceAbove;
using surface::SurfaceHit;
using witness::judge;
using witness::Rule;

PokeSearch::PokeSearch(PokeFrame& frame, const PokeInteractor::Config& config,
                       const PokeInteractable* lastFound)
    : frame_(frame)
    , config_(config)
    , lastFound_(lastFound)
{
}

bool PokeSearch::isInRange(const PokeInteractable& interactable) const
{
    if (!frame_.hasMetBefore(interactable)) {
        return true;
    }
    const float moved = frame_.getOrigin().Distance(frame_.getPreviousOriginCarriedBy(interactable));
    const float enterLimit =
        std::max(interactable.getEnterHoverTangent(), interactable.getEnterHoverNormal());
    const float reach = moved + config_.radius + enterLimit + config_.equalDistanceEpsilon +
                        interactable.getCloseDistanceThreshold();
    SurfaceHit hit;
    const bool isNear = interactable.getSurfacePatch().closestSurfacePoint(frame_.getOrigin(), hit, reach);
    if (!isNear && witness::hasWitness()) {
        interactable.getSurfacePatch().closestSurfacePoint(frame_.getOrigin(), hit, surface::kNoLimit);
    }
    return judge(Rule::PokeInRange, isNear, hit.distance, reach, interactable);
}

// A finger begins from above: not at the surface, not under it, and with a minimum height not within that
// height either, unless a finger is already deeper there. The candidate of the last search passes anyway.
bool PokeSearch::passesEnterHoverDistanceCheck(Rule rule, const Vector3f& point,
                                               const PokeInteractable& interactable) const
{
    if (&interactable == lastFound_) {
        return true;
    }
    float threshold = 0.0f;
    if (interactable.getMinThresholds().enabled) {
        threshold = std::min(interactable.getMinThresholds().minNormal, minPokeDepth(interactable));
    }
    const float above = computeDistanceAbove(interactable, point, config_.radius);
    return judge(rule, above > threshold, above, threshold, interactable);
}

// How deep the shallowest of the fingers already there is.
float PokeSearch::minPokeDepth(const PokeInteractable& interactable) const
{
    float depth = interactable.getExitHoverNormal();
    for (const PokeInteractor* interactor : interactable.getInteractors()) {
        depth = std::min(depth, computeDepth(interactable, interactor->getOrigin(), config_.radius));
    }
    return depth;
}

float PokeSearch::hoverTangentLimit(const PokeInteractable& interactable) const
{
    return &interactable == lastFound_ ? interactable.getExitHoverTangent()
                                       : interactable.getEnterHoverTangent();
}

bool PokeSearch::areEquallyFar(float distance, float otherDistance) const
{
    return std::fabs(distance - otherDistance) < config_.equalDistanceEpsilon;
}

} // namespace velk::interaction
