// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkSurfacePatch.h"

#include "velk_common/NeverDestroyed.h"

namespace velk::capi::surface_patch
{

internal::Registry& internal::getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

std::shared_ptr<interaction::surface::ISurfacePatch> getPtr(VelkSurfacePatchHandle handle)
{
    return internal::getRegistry().get(handle);
}

int32_t destroy(VelkSurfacePatchHandle handle)
{
    return internal::getRegistry().destroy(handle);
}

} // namespace velk::capi::surface_patch
