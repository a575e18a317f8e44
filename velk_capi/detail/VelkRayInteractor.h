// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::ray_interactor
{

VelkInteractorHandle create();
int32_t setMaxRayLength(VelkInteractorHandle interactor, float length);
int32_t setPose(VelkInteractorHandle interactor, const talpPosef* pose);
int32_t getOrigin(VelkInteractorHandle interactor, talpVector3f* origin);
int32_t getEnd(VelkInteractorHandle interactor, talpVector3f* end);

} // namespace velk::capi::ray_interactor
