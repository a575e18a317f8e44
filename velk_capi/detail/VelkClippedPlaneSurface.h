// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::clipped_plane_surface
{

VelkSurfacePatchHandle create(const talpPosef* pose, const velk_BoundsClipper* clippers, int count);
int32_t setPose(VelkSurfacePatchHandle surface, const talpPosef* pose);

} // namespace velk::capi::clipped_plane_surface
