// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPointablePlane.h"

#include "math/Aliases.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkPointableSurface.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

#include <memory>

namespace velk::capi::pointable_plane
{

using interaction::surface::PointablePlane;

VelkPointableSurfaceHandle create(const talpPosef* pose, const talpVector2f* size)
{
    const auto corePose = pose == nullptr ? Posef::Identity() : SpaceConversions::talpToTal(*pose);
    const auto coreSize = size == nullptr ? Vector2f::ZERO : SpaceConversions::talpToTal(*size);
    return pointable_surface::insert(std::make_shared<PointablePlane>(corePose, coreSize));
}

int32_t getNormal(VelkPointableSurfaceHandle plane, talpVector3f* normal)
{
    const auto* object = pointable_surface::getRawPtr<PointablePlane>(plane);
    if (object == nullptr) {
        return kFailure;
    }
    *normal = SpaceConversions::talToTalp(object->getNormal());
    return kSuccess;
}

int32_t setSize(VelkPointableSurfaceHandle plane, const talpVector2f* size)
{
    auto* object = pointable_surface::getRawPtr<PointablePlane>(plane);
    if (object == nullptr) {
        return kFailure;
    }
    object->setSize(SpaceConversions::talpToTal(*size));
    return kSuccess;
}

} // namespace velk::capi::pointable_plane
