// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/poke/visuals/PokeButtonVisual.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::poke_button_visual
{

using Registry = ObjectRegistry<interaction::PokeButtonVisual, VelkPokeButtonVisualHandle>;

Registry& getRegistry();

VelkPokeButtonVisualHandle create(VelkInteractableHandle interactable, const talpPosef* basePose,
                                  float maxExtent);
int32_t destroy(VelkPokeButtonVisualHandle visual);
int32_t updateBasePose(VelkPokeButtonVisualHandle visual, const talpPosef* basePose, float maxExtent);
int32_t getCurrentExtent(VelkPokeButtonVisualHandle visual, float* extent);
int32_t getCurrentPose(VelkPokeButtonVisualHandle visual, talpPosef* pose);

} // namespace velk::capi::poke_button_visual
