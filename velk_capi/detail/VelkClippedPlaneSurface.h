// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::clipped_plane_surface
{

/// The boxes are given in the frame of the plane itself. A negative `count` throws std::length_error.
VelkSurfacePatchHandle create(const talpPosef* pose, const velk_BoundsClipper* clippers, int count);

/// Always -1, and the patch stays where it is: to move one, destroy it and create another.
int32_t setPose(VelkSurfacePatchHandle surface, const talpPosef* pose);

} // namespace velk::capi::clipped_plane_surface
