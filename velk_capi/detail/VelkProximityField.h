// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/proximityfield/IProximityField.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::proximity_field
{

using Registry = ObjectRegistry<interaction::proximity_field::IProximityField, VelkProximityFieldHandle>;

Registry& getRegistry();

int32_t destroy(VelkProximityFieldHandle field);

} // namespace velk::capi::proximity_field
