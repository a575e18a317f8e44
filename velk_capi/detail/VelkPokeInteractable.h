// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::poke_interactable
{

VelkInteractableHandle create(VelkSurfacePatchHandle surfacePatch);
VelkInteractableHandle createWithConfig(VelkSurfacePatchHandle surfacePatch,
                                        const velk_PokeInteractableConfig* config);
int32_t getDefaultConfig(velk_PokeInteractableConfig* config);
int32_t setSurface(VelkInteractableHandle interactable, VelkSurfacePatchHandle surfacePatch);

} // namespace velk::capi::poke_interactable
