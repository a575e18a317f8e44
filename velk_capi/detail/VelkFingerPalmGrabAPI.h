// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/palmgrab/FingerPalmGrabAPI.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::fingerpalmgrab_api
{

namespace internal
{
ObjectRegistry<interaction::grab::FingerPalmGrabAPI, VelkPalmGrabAPIHandle>& getRegistry();
} // namespace internal

VelkPalmGrabAPIHandle create();
int32_t destroy(VelkPalmGrabAPIHandle api);
int32_t updateHandData(VelkPalmGrabAPIHandle api, const velk_HandPalmData* data);
int32_t getFingerIsGrabbing(VelkPalmGrabAPIHandle api, VelkHandFinger finger, bool* isGrabbing);
int32_t getFingerIsGrabbingChanged(VelkPalmGrabAPIHandle api, VelkHandFinger finger, bool targetGrabState,
                                   bool* hasChanged);
int32_t getCenterOffset(VelkPalmGrabAPIHandle api, talpVector3f* offset);
int32_t getFingerGrabScore(VelkPalmGrabAPIHandle api, VelkHandFinger finger, float* score);

} // namespace velk::capi::fingerpalmgrab_api
