// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkFingerPalmGrabAPI.h"

#include "velk_capi/detail/GrabDataConversions.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkLog.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <memory>

namespace velk::capi::fingerpalmgrab_api
{

using interaction::grab::FingerPalmGrabAPI;
using interaction::grab::HandFinger;

namespace internal
{

ObjectRegistry<FingerPalmGrabAPI, VelkPalmGrabAPIHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<FingerPalmGrabAPI, VelkPalmGrabAPIHandle>> registry;
    return *registry;
}

} // namespace internal

namespace
{

constexpr const char* kSource = "velk_capi/detail/VelkFingerPalmGrabAPI.cpp";

} // namespace

VelkPalmGrabAPIHandle create()
{
    return internal::getRegistry().insert(
        std::make_shared<FingerPalmGrabAPI>(), [](VelkPalmGrabAPIHandle handle) {
            if (handle == VelkPalmGrabAPIHandle_Invalid) {
                common::log::logWithTag(common::log::kError, common::log::kTag, kSource,
                                        "ERROR velk::capi::fingerpalmgrab_api::  invalid handle returned");
            } else {
                velk::telemetry::incrementValue("brenna_velk_feature_used_event", "handgrab_count");
            }
        });
}

int32_t destroy(VelkPalmGrabAPIHandle api)
{
    return internal::getRegistry().destroy(api);
}

int32_t updateHandData(VelkPalmGrabAPIHandle api, const velk_HandPalmData* data)
{
    FingerPalmGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    const data::HandPalmData hand = SpaceConversions::capiToCore(*data);
    target->Update(&hand);
    return kSuccess;
}

int32_t getFingerIsGrabbing(VelkPalmGrabAPIHandle api, VelkHandFinger finger, bool* isGrabbing)
{
    FingerPalmGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *isGrabbing = target->GetFingerIsGrabbing(static_cast<HandFinger>(finger));
    return kSuccess;
}

int32_t getFingerIsGrabbingChanged(VelkPalmGrabAPIHandle api, VelkHandFinger finger, bool targetGrabState,
                                   bool* hasChanged)
{
    FingerPalmGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *hasChanged = target->GetFingerIsGrabbingChanged(static_cast<HandFinger>(finger), targetGrabState);
    return kSuccess;
}

int32_t getCenterOffset(VelkPalmGrabAPIHandle api, talpVector3f* offset)
{
    FingerPalmGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *offset = SpaceConversions::talToTalp(target->GetCenterOffset());
    return kSuccess;
}

int32_t getFingerGrabScore(VelkPalmGrabAPIHandle api, VelkHandFinger finger, float* score)
{
    FingerPalmGrabAPI* const target = internal::getRegistry().getRawPointer(api);
    if (target == nullptr) {
        return kFailure;
    }
    *score = target->GetFingerGrabScore(static_cast<HandFinger>(finger));
    return kSuccess;
}

} // namespace velk::capi::fingerpalmgrab_api
