// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/surfaces/ISurface.h"

#include <velk/velk.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace velk::capi::pointable_surface
{

namespace internal
{

using Registry = ObjectRegistry<interaction::surface::ISurface, VelkPointableSurfaceHandle>;

Registry& getRegistry();

} // namespace internal

template <typename P>
VelkPointableSurfaceHandle insert(P&& surface)
{
    return internal::getRegistry().insert(std::forward<P>(surface));
}

std::shared_ptr<interaction::surface::ISurface> getPtr(VelkPointableSurfaceHandle handle);

/// Null for an unknown handle and for a surface of another kind.
template <typename U>
U* getRawPtr(VelkPointableSurfaceHandle handle)
{
    return getRawPointerAs<U>(internal::getRegistry(), handle);
}

/// For any kind of surface: 1 for a hit, 2 for none, -1 for an unknown handle or a null `point`. A `hit`
/// that is not null is written for a miss too.
int32_t closestSurfacePoint(VelkPointableSurfaceHandle handle, const talpVector3f* point,
                            velk_SurfaceHit* hit, float maxDistance);

int32_t setPose(VelkPointableSurfaceHandle handle, const talpPosef* pose);

int32_t destroy(VelkPointableSurfaceHandle handle);

} // namespace velk::capi::pointable_surface
