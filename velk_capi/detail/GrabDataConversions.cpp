// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/GrabDataConversions.h"

#include "velk_capi/detail/SpaceConversions.h"

#include <cstddef>

namespace SpaceConversions
{

velk::data::HandPinchData capiToCore(const velk_HandPinchData& record)
{
    velk::data::HandPinchData data;
    for (std::size_t i = 0; i < data.jointPositions.size(); ++i) {
        data.jointPositions[i] = talpToTal(record.jointPositions[i]);
    }
    return data;
}

velk::data::HandPalmData capiToCore(const velk_HandPalmData& record)
{
    velk::data::HandPalmData data;
    data.handedness = record.handedness;
    data.rootPose = talpToTal(record.rootPose);
    for (std::size_t i = 0; i < data.jointPoses.size(); ++i) {
        data.jointPoses[i] = talpToTal(record.jointPoses[i]);
    }
    return data;
}

} // namespace SpaceConversions
