// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkFingerPinchGrabAPI.h"

#include "math/Aliases.h"
#include "velk_capi/detail/GrabDataConversions.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkLog.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <memory>

namespace velk::capi::fingerpinchgrab_api
{

using interaction::grab::FingerPinchGrabAPI;
using interaction::grab::HandFinger;

namespace internal
{

ObjectRegistry<FingerPinchGrabAPI, VelkPinchGrabAPIHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<FingerPinchGrabAPI, VelkPinchGrabAPIHandle>> registry;
    return *registry;
}

} // namespace internal

namespace
{

constexpr const char* kSource = "velk_capi/detail/VelkFingerPinchGrabAPI.cpp";

int32_t UpdateData(VelkPinchGrabAPIHandle handle, const velk_HandPinchData* data, const talpVector3f* wrist,
                   const talpVector3f* hmd)
{
    FingerPinchGrabAPI* const api = internal::getRegistry().getRawPointer(handle);
    if (api == nullptr) {
        return kFailure;
    }
    const data::HandPinchData hand = SpaceConversions::capiToCore(*data);
    // An absent direction stays absent: the view then counts as not good.
    const Vector3f wristDirection = wrist == nullptr ? Vector3f() : SpaceConversions::talpToTal(*wrist);
    const Vector3f hmdDirection = hmd == nullptr ? Vector3f() : SpaceConversions::talpToTal(*hmd);
    api->update(&hand, wrist == nullptr ? nullptr : &wristDirection,
                hmd == nullptr ? nullptr : &hmdDirection);
    return kSuccess;
}

} // namespace

VelkPinchGrabAPIHandle create()
{
    return internal::getRegistry().insert(
        std::make_shared<FingerPinchGrabAPI>(), [](VelkPinchGrabAPIHandle handle) {
            if (handle == VelkPinchGrabAPIHandle_Invalid) {
                common::log::logWithTag(common::log::kError, common::log::kTag, kSource,
                                        "ERROR velk::capi::fingerpinchgrab_api::  invalid handle returned");
            } else {
                velk::telemetry::incrementValue("brenna_velk_feature_used_event", "handgrab_count");
            }
        });
}

int32_t destroy(VelkPinchGrabAPIHandle api)
{
    return internal::getRegistry().destroy(api);
}

int32_t updateHandWristHMDData(VelkPinchGrabAPIHandle api, const velk_HandPinchData* data,
                               const talpVector3f* wrist, const talpVector3f* hmd)
{
    return UpdateData(api, data, wrist, hmd);
}

int32_t updateHandData(VelkPinchGrabAPIHandle api, const velk_HandPinchData* data)
{
    return UpdateData(api, data, nullptr, nullptr);
}

int32_t getFingerIsGrabbing(VelkPinchGrabAPIHandle api, VelkHandFinger finger, bool* isGrabbing)
{
    FingerPinchGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *isGrabbing = target->getFingerIsGrabbing(static_cast<HandFinger>(finger));
    return kSuccess;
}

int32_t getFingerIsGrabbingChanged(VelkPinchGrabAPIHandle api, VelkHandFinger finger, bool targetGrabState,
                                   bool* hasChanged)
{
    FingerPinchGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *hasChanged = target->getFingerIsGrabbingChanged(static_cast<HandFinger>(finger), targetGrabState);
    return kSuccess;
}

int32_t getCenterOffset(VelkPinchGrabAPIHandle api, talpVector3f* offset)
{
    FingerPinchGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *offset = SpaceConversions::talToTalp(target->getCenterOffset());
    return kSuccess;
}

int32_t getFingerGrabScore(VelkPinchGrabAPIHandle api, VelkHandFinger finger, float* score)
{
    FingerPinchGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *score = target->getFingerGrabScore(static_cast<HandFinger>(finger));
    return kSuccess;
}

} // namespace velk::capi::fingerpinchgrab_api
