// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkClippedPlaneSurface.h"

#include "math/Aliases.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkSurfacePatch.h"
#include "velk_core/interaction/surfaces/BoundsClipper.h"
#include "velk_core/interaction/surfaces/ClippedPlaneSurface.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace velk::capi::clipped_plane_surface
{

using interaction::surface::BoundsClipper;
using interaction::surface::ClippedPlaneSurface;
using interaction::surface::PointablePlane;

VelkSurfacePatchHandle create(const talpPosef* pose, const velk_BoundsClipper* clippers, int count)
{
    // Half-widths of the plane behind every patch, in the host's units. Only the clippers narrow it.
    const Vector2f backingSize(100.0f, 100.0f);
    const auto backing = std::make_shared<PointablePlane>(SpaceConversions::talpToTal(*pose), backingSize);

    std::vector<BoundsClipper> boxes;
    boxes.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        boxes.emplace_back(backing, SpaceConversions::talpToTal(clippers[i].position),
                           SpaceConversions::talpToTal_OnlyScale(clippers[i].size));
    }
    return surface_patch::insert(std::make_shared<ClippedPlaneSurface>(backing, std::move(boxes)));
}

int32_t setPose(VelkSurfacePatchHandle surface, const talpPosef* pose)
{
    // No patch is a PointablePlane, so this fails for every handle.
    auto* plane = surface_patch::getRawPtr<PointablePlane>(surface);
    if (plane == nullptr) {
        return kFailure;
    }
    plane->setPose(SpaceConversions::talpToTal(*pose));
    return kSuccess;
}

} // namespace velk::capi::clipped_plane_surface
