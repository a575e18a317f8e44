// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AllocationCounter.h"
#include "tests/support/CapturedLog.h"
#include "velk_capi/detail/VelkDataSource.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <velk/velk.h>

#include <gtest/gtest.h>

namespace velk::capi
{
namespace
{

TEST(DataSourceFamily, CountsEveryModifierAsAOneEuroFilter)
{
    telemetry::disableSendingThread();
    test::CapturedLog log(3);
    const auto source = data_source::create(VelkDataSourceType_Dummy);
    data_modifier::create(VelkDataModifierType_SyntheticHand, source);
    data_modifier::create(static_cast<VelkDataModifierType>(3), source);
    EXPECT_EQ(log.lines.back(), "VELK:VelkDataSource:3 incrementValue event: brenna_velk_initialized_event, "
                                "feature: hand_filter_oneeuro, result: 2");
    int count = 0;
    telemetry::getValue("brenna_velk_initialized_event", "hand_filter_oneeuro", count);
    EXPECT_EQ(count, 1); // a type that is not known makes and counts nothing
    telemetry::clearCache();
}

TEST(DataSourceFamily, AllocatesNothingInASteadyFrameAndKeepsTheLastRecordOfALostSource)
{
    telemetry::disableSendingThread();
    const auto source = data_source::create(VelkDataSourceType_External);
    const auto filter = data_modifier::create(VelkDataModifierType_OneEuroHandFilter, source);
    const auto synthetic = data_modifier::create(VelkDataModifierType_SyntheticHand, filter);
    velk_HandData record{};
    record.rootPose.position.x = 1.0f;
    for (int frame = 0; frame < 4; ++frame) {
        test::allocations = 0;
        external_hand_source::setData(source, &record);
        data_source::update(synthetic);
        data_source::getData(filter, &record);
    }
    EXPECT_EQ(test::allocations, 0);
    data_source::destroy(source);
    EXPECT_EQ(data_source::update(filter), 0);
    EXPECT_EQ(data_source::getData(filter, &record), 0);
    EXPECT_EQ(record.rootPose.position.x, 1.0f);
}

} // namespace
} // namespace velk::capi
