// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/surfaces/ISurfacePatch.h"

#include <velk/velk.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace velk::capi::surface_patch
{

namespace internal
{

using Registry = ObjectRegistry<interaction::surface::ISurfacePatch, VelkSurfacePatchHandle>;

Registry& getRegistry();

} // namespace internal

template <typename P>
VelkSurfacePatchHandle insert(P&& patch)
{
    return internal::getRegistry().insert(std::forward<P>(patch));
}

std::shared_ptr<interaction::surface::ISurfacePatch> getPtr(VelkSurfacePatchHandle handle);

/// Null for an unknown handle and for a patch of another kind.
template <typename U>
U* getRawPtr(VelkSurfacePatchHandle handle)
{
    return getRawPointerAs<U>(internal::getRegistry(), handle);
}

int32_t destroy(VelkSurfacePatchHandle handle);

} // namespace velk::capi::surface_patch
