// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeGathering.h"

#include "velk_core/interaction/search/Rounding.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_core/interaction/search/SurfaceRegion.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>

namespace velk::interaction
{

namespace
{

using search::SurfaceIndex;

/// Metres: a finger of a larger radius asks all.
constexpr float kLargestRadius = 1.0e3f;

/// The finger's radius counts along the surface and once more above it: the root of two, and a slack for
/// rotations that are not quite of unit length, as has the way.
constexpr float kRadiusFactor = 1.43f;
constexpr float kWaySlack = 0.01f;

// With no reach at all the broad test admits everything.
bool isOrdinary(const PokeFrame& frame, const PokeInteractor::Config& config)
{
    return search::isNear(frame.getOrigin()) && search::isNear(frame.getPreviousOrigin()) &&
           config.radius > 0.0f && config.radius <= kLargestRadius && config.equalDistanceEpsilon >= 0.0f &&
           config.equalDistanceEpsilon <= kLargestRadius;
}

// Round the finger's way. A long way may cross a plane beyond its end, and still count for the patch over
// which it ends: then round a cube that no way out of it can leave.
search::PointQuery queryAround(const PokeFrame& frame, float radius)
{
    const Vector3f& origin = frame.getOrigin();
    const float way = origin.Distance(frame.getPreviousOrigin());
    const bool isShort = way <= search::kShortWay;
    search::PointQuery query;
    query.box.add(origin);
    query.box.add(isShort ? frame.getPreviousOrigin() : origin);
    query.box.grow(kRadiusFactor * radius + (isShort ? 0.0f : way) + kWaySlack * way +
                   search::slackAt(search::farthestCoordinate(origin)));
    return query;
}

} // namespace

void gatherAround(const PokeFrame& frame, const PokeInteractor::Config& config, PokeInteractable* lastFound,
                  std::vector<PokeInteractable*>& found)
{
    SurfaceIndex& index = PokeInteractable::getStaticIndex();
    if (index.empty()) {
        found.clear();
        return;
    }
    index.look(PokeFrame::getLeastMoment());
    // For a finger that was never updated nothing has moved.
    const uint64_t moment = frame.getMoment() != PokeFrame::kNever ? frame.getMoment() : SurfaceIndex::kEver;
    if (frame.remembersAll() || witness::hasWitness() || !isOrdinary(frame, config)) {
        const auto& all = PokeInteractable::getStaticRegistry().getAll();
        found.assign(all.begin(), all.end());
        return;
    }
    found.clear();
    const auto add = [&found](const search::Place& place) {
        found.push_back(static_cast<PokeInteractable*>(&place.getOwner()));
    };
    index.visitChanged(moment, add);
    index.find(queryAround(frame, config.radius), moment, add);
    if (lastFound != nullptr && lastFound->getPlace().isEntered() &&
        std::find(found.begin(), found.end(), lastFound) == found.end()) {
        found.push_back(lastFound);
    }
    std::sort(found.begin(), found.end(), [](const PokeInteractable* a, const PokeInteractable* b) {
        return a->getPlace().getEntered() < b->getPlace().getEntered();
    });
}

} // namespace velk::interaction
