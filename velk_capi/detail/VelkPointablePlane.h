// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::pointable_plane
{

VelkPointableSurfaceHandle create(const talpPosef* pose, const talpVector2f* size);

int32_t getNormal(VelkPointableSurfaceHandle plane, talpVector3f* normal);
int32_t setSize(VelkPointableSurfaceHandle plane, const talpVector2f* size);

} // namespace velk::capi::pointable_plane
