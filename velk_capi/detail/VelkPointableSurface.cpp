// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPointableSurface.h"

#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_core/interaction/surfaces/PointablePlane.h"

namespace velk::capi::pointable_surface
{

namespace
{

constexpr int32_t kHit = 1;
constexpr int32_t kNoHit = 2;

} // namespace

internal::Registry& internal::getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

std::shared_ptr<interaction::surface::ISurface> getPtr(VelkPointableSurfaceHandle handle)
{
    return internal::getRegistry().get(handle);
}

int32_t closestSurfacePoint(VelkPointableSurfaceHandle handle, const talpVector3f* point,
                            velk_SurfaceHit* hit, float maxDistance)
{
    const auto* surface = internal::getRegistry().getRawPointer(handle);
    if (point == nullptr || surface == nullptr) {
        return kFailure;
    }
    interaction::surface::SurfaceHit found;
    const bool isHit = surface->closestSurfacePoint(SpaceConversions::talpToTal(*point), found, maxDistance);
    if (hit != nullptr) {
        *hit = SpaceConversions::coreToCapi(found);
    }
    return isHit ? kHit : kNoHit;
}

int32_t setPose(VelkPointableSurfaceHandle handle, const talpPosef* pose)
{
    auto* plane = getRawPtr<interaction::surface::PointablePlane>(handle);
    if (plane == nullptr) {
        return kFailure;
    }
    plane->setPose(SpaceConversions::talpToTal(*pose));
    return kSuccess;
}

int32_t destroy(VelkPointableSurfaceHandle handle)
{
    return internal::getRegistry().destroy(handle);
}

} // namespace velk::capi::pointable_surface
