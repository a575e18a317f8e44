// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::fingerpinchgrab_api
{

namespace internal
{
ObjectRegistry<interaction::grab::FingerPinchGrabAPI, VelkPinchGrabAPIHandle>& getRegistry();
} // namespace internal

VelkPinchGrabAPIHandle create();
int32_t destroy(VelkPinchGrabAPIHandle api);
int32_t updateHandWristHMDData(VelkPinchGrabAPIHandle api, const velk_HandPinchData* data,
                               const talpVector3f* wrist, const talpVector3f* hmd);
int32_t updateHandData(VelkPinchGrabAPIHandle api, const velk_HandPinchData* data);
int32_t getFingerIsGrabbing(VelkPinchGrabAPIHandle api, VelkHandFinger finger, bool* isGrabbing);
int32_t getFingerIsGrabbingChanged(VelkPinchGrabAPIHandle api, VelkHandFinger finger, bool targetGrabState,
                                   bool* hasChanged);
int32_t getCenterOffset(VelkPinchGrabAPIHandle api, talpVector3f* offset);
int32_t getFingerGrabScore(VelkPinchGrabAPIHandle api, VelkHandFinger finger, float* score);

} // namespace velk::capi::fingerpinchgrab_api
