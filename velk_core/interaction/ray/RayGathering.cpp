// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/ray/RayGathering.h"

#include "velk_core/interaction/search/Rounding.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

namespace
{

using search::SurfaceIndex;

/// Lengths of a direction: shorter and longer ones ask all.
constexpr float kShortest = 1.0e-3f;
constexpr float kLongest = 1.0e3f;

bool isOrdinary(const math::Ray& ray)
{
    const float squaredLength = ray.direction.LengthSq();
    return squaredLength >= kShortest * kShortest && squaredLength <= kLongest * kLongest &&
           search::isNear(ray.origin);
}

bool isAlongSide(const Vector3f& direction)
{
    return !std::isfinite(1.0f / direction.x) || !std::isfinite(1.0f / direction.y) ||
           !std::isfinite(1.0f / direction.z);
}

// Keeps the slabs' distances finite. Over the whole range of coordinates the ray moves by less than the
// slack.
float awayFromZero(float component)
{
    constexpr float kLeast = 1.0e-18f;
    return std::fabs(component) >= kLeast ? component : std::copysign(kLeast, component);
}

} // namespace

void gatherAlong(const math::Ray& ray, std::vector<RayInteractable*>& found)
{
    SurfaceIndex& index = RayInteractable::getStaticIndex();
    if (index.empty()) {
        found.clear();
        return;
    }
    index.look(SurfaceIndex::kEver);
    if (SurfaceIndex::scansAll() || witness::hasWitness() || !isOrdinary(ray) ||
        (index.hasBoxes() && isAlongSide(ray.direction))) {
        const auto& all = RayInteractable::getStaticRegistry().getAll();
        found.assign(all.begin(), all.end());
        return;
    }
    found.clear();
    const Vector3f& direction = ray.direction;
    const search::RayQuery query(
        ray.origin, Vector3f(awayFromZero(direction.x), awayFromZero(direction.y), awayFromZero(direction.z)),
        search::slackAt(search::farthestCoordinate(ray.origin)));
    index.find(query, SurfaceIndex::kEver, [&found](const search::Place& place) {
        found.push_back(static_cast<RayInteractable*>(&place.getOwner()));
    });
    std::sort(found.begin(), found.end(), [](const RayInteractable* a, const RayInteractable* b) {
        return a->getOrder() < b->getOrder();
    });
}

} // namespace velk::interaction
