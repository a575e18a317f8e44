// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/poke/visuals/HandPokeLimiterVisual.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::hand_poke_limiter_visual
{

using Registry = ObjectRegistry<interaction::HandPokeLimiterVisual, VelkHandPokeLimiterVisualHandle>;

Registry& getRegistry();

VelkHandPokeLimiterVisualHandle create(VelkDataSourceHandle hand, VelkInteractorHandle interactor,
                                       VelkDataSourceHandle syntheticHand);
int32_t destroy(VelkHandPokeLimiterVisualHandle visual);
int32_t update(VelkHandPokeLimiterVisualHandle visual);

} // namespace velk::capi::hand_poke_limiter_visual
