// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/ray/RayGathering.h"

#include "velk_core/interaction/search/SurfaceIndex.h"

#include <algorithm>
#include <cmath>

namespace velk::interaction
{

namespace
{

using search::SurfaceIndex;

/// Metres, and lengths of a direction: beyond these, rounding is no longer small.
constexpr float kFarthest = 1.0e5f;
constexpr float kShortest = 1.0e-3f;
constexpr float kLongest = 1.0e3f;

/// Rounding of the exact queries, of the origin's farthest coordinate.
constexpr float kRelativeSlack = 1.0e-5f;
constexpr float kLeastSlack = 1.0e-6f;

float farthestCoordinate(const Vector3f& point)
{
    return std::max({std::fabs(point.x), std::fabs(point.y), std::fabs(point.z)});
}

bool isOrdinary(const math::Ray& ray)
{
    const float squaredLength = ray.direction.LengthSq();
    const Vector3f& origin = ray.origin;
    return squaredLength >= kShortest * kShortest && squaredLength <= kLongest * kLongest &&
           std::fabs(origin.x) <= kFarthest && std::fabs(origin.y) <= kFarthest &&
           std::fabs(origin.z) <= kFarthest;
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
    if (SurfaceIndex::scansAll() || !isOrdinary(ray) || (index.hasBoxes() && isAlongSide(ray.direction))) {
        const auto& all = RayInteractable::getStaticRegistry().getAll();
        found.assign(all.begin(), all.end());
        return;
    }
    found.clear();
    const Vector3f& direction = ray.direction;
    const search::RayQuery query(
        ray.origin, Vector3f(awayFromZero(direction.x), awayFromZero(direction.y), awayFromZero(direction.z)),
        kRelativeSlack * farthestCoordinate(ray.origin) + kLeastSlack);
    index.find(query, SurfaceIndex::kEver, [&found](const search::Place& place) {
        found.push_back(static_cast<RayInteractable*>(&place.getOwner()));
    });
    std::sort(found.begin(), found.end(), [](const RayInteractable* a, const RayInteractable* b) {
        return a->getOrder() < b->getOrder();
    });
}

} // namespace velk::interaction
