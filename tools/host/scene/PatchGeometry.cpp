// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/PatchGeometry.h"

#include <algorithm>

namespace velk_tools
{

namespace
{

constexpr float kEndless = 100; // metres: how far a patch reaches to each side without clippers

float distanceTo(const Area& area, Vec3 local)
{
    const Vec3 nearest{std::clamp(local.x, area.left, std::max(area.left, area.right)),
                       std::clamp(local.y, area.bottom, std::max(area.bottom, area.top)), 0};
    return length(local - nearest);
}

} // namespace

Area areaOf(const Patch& patch)
{
    Area area{-kEndless, kEndless, -kEndless, kEndless};
    for (const velk_BoundsClipper& clipper : patch.clippers) {
        area.left = std::max(area.left, clipper.position.x - clipper.size.x / 2);
        area.right = std::min(area.right, clipper.position.x + clipper.size.x / 2);
        area.bottom = std::max(area.bottom, clipper.position.y - clipper.size.y / 2);
        area.top = std::min(area.top, clipper.position.y + clipper.size.y / 2);
    }
    return area;
}

float distanceTo(const Patch& patch, Vec3 point)
{
    return distanceTo(areaOf(patch), inverseTransform(patch.pose, point));
}

bool comesThrough(const Patch& patch, Vec3 from, Vec3 to)
{
    const Vec3 start = inverseTransform(patch.pose, from);
    const Vec3 end = inverseTransform(patch.pose, to);
    if (start.z <= kTipRadius || end.z > kTipRadius) {
        return false;
    }
    const Vec3 way = end - start;
    Vec3 met = end.z > 0 ? end : start + way * (start.z / -way.z);
    met.z = 0;
    return distanceTo(areaOf(patch), met) - kTipRadius <= patch.config.enterHoverTangent;
}

} // namespace velk_tools
