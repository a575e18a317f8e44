// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/select/Selector.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::selector
{

ObjectRegistry<select::Selector, VelkSelectorHandle>& getRegistry();

VelkSelectorHandle create();
int32_t destroy(VelkSelectorHandle selector);
int32_t select(VelkSelectorHandle selector);
int32_t unselect(VelkSelectorHandle selector);

} // namespace velk::capi::selector
