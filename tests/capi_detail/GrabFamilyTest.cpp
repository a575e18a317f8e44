// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/CapturedLog.h"
#include "velk_capi/detail/VelkFingerPalmGrabAPI.h"
#include "velk_capi/detail/VelkFingerPinchGrabAPI.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace pinch = velk::capi::fingerpinchgrab_api;
namespace palm = velk::capi::fingerpalmgrab_api;

TEST(GrabFamilies, CreatesCountUnlessTheHandleIsAllOnesWhichIsLogged)
{
    velk::telemetry::disableSendingThread();
    const auto counted = [] {
        int value = 0;
        velk::telemetry::getValue("brenna_velk_feature_used_event", "handgrab_count", value);
        return value;
    };
    const velk::test::CapturedLog log(velk::common::log::kError);
    const auto wrap = [](auto& registry) { registry = std::decay_t<decltype(registry)>(~0U); };
    pinch::create();
    palm::create();
    EXPECT_EQ(counted(), 2);
    wrap(pinch::internal::getRegistry());
    wrap(palm::internal::getRegistry());
    EXPECT_EQ(pinch::create(), VelkPinchGrabAPIHandle_Invalid);
    EXPECT_EQ(palm::create(), VelkPalmGrabAPIHandle_Invalid);
    EXPECT_EQ(counted(), 2);
    EXPECT_EQ(
        log.lines,
        (std::vector<std::string>{
            "VELK:VelkFingerPinchGrabAPI:6 ERROR velk::capi::fingerpinchgrab_api::  invalid handle returned",
            "VELK:VelkFingerPalmGrabAPI:6 ERROR velk::capi::fingerpalmgrab_api::  invalid handle returned"}));
    EXPECT_EQ(palm::destroy(VelkPalmGrabAPIHandle_Invalid), 0); // a handle like any other
}

TEST(GrabFamilies, AbsentDirectionsCountAsABadView)
{
    velk::telemetry::disableSendingThread();
    const auto api = pinch::create();
    velk_HandPinchData hand = {};
    hand.jointPositions[VelkHandJointId_ThumbTip] = {0.03f, 0.0f, 0.0f};
    hand.jointPositions[VelkHandJointId_IndexTip] = {0.015f, 0.019f, 0.0f}; // too far for a good view
    const talpVector3f view = {0.0f, 0.0f, 1.0f};
    bool changed = true;
    pinch::updateHandWristHMDData(api, &hand, &view, &view);
    EXPECT_EQ(pinch::getFingerIsGrabbingChanged(api, VelkHandFinger_Index, true, &changed), 0);
    EXPECT_FALSE(changed);
    EXPECT_EQ(pinch::updateHandData(api, &hand), 0);
    pinch::getFingerIsGrabbingChanged(api, VelkHandFinger_Index, true, &changed);
    EXPECT_TRUE(changed);
}
