// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::ray_interactable
{

VelkInteractableHandle create(VelkPointableSurfaceHandle surface);
int32_t setSurface(VelkInteractableHandle interactable, VelkPointableSurfaceHandle surface);

} // namespace velk::capi::ray_interactable
