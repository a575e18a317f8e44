// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_capi/detail/VelkCommon.h"
#include "velk_common/VelkAssert.h"
#include "velk_core/utility/NativeLog.h"

#include <gtest/gtest.h>

#include <string>

TEST(NativeLog, GreetsOnRegistrationAndFallsSilentOnNull)
{
    using velk::utility::NativeLog;
    static std::string heard;
    velk::capi::common::setNativeLogCallback([](const char* message, int color, int length) {
        heard += std::string(message) + '|' + std::to_string(color) + '|' + std::to_string(length) + '\n';
    });
    NativeLog::log("text", NativeLog::Color::Red);
    velk::capi::common::setNativeLogCallback(nullptr);
    NativeLog::log("unheard", NativeLog::Color::Red);
    EXPECT_EQ(heard, "NativeLog: connection established!|5|34\ntext|1|4\n");
}

TEST(VelkAssertDeathTest, TrapsInEveryBuildOnAFalseCondition)
{
    EXPECT_TRUE(velk::common::velkAssert(true));
    EXPECT_DEATH(velk::common::velkAssert(false), "");
}
