// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::box_proximity_field
{

VelkProximityFieldHandle create(const talpPosef* pose, const talpVector3f* size);
int32_t setPose(VelkProximityFieldHandle field, const talpPosef* pose);
int32_t setSize(VelkProximityFieldHandle field, const talpVector3f* size);

} // namespace velk::capi::box_proximity_field
