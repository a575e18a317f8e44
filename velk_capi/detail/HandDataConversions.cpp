// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/HandDataConversions.h"

#include "velk_capi/detail/SpaceConversions.h"

#include <cstddef>
#include <iterator>

namespace SpaceConversions
{

using velk::data::HandData;

void capiToCore(const velk_HandData& record, HandData& hand)
{
    hand.rootPose = talpToTal(record.rootPose);
    hand.joints.clear();
    for (const talpQuatf& joint : record.joints) {
        hand.joints.push_back(talpToTal(joint));
    }
}

velk_HandData coreToCapi(const HandData& hand)
{
    velk_HandData record{};
    record.rootPose = talToTalp(hand.rootPose);
    for (std::size_t i = 0; i < std::size(record.joints); ++i) {
        record.joints[i] = talToTalp(hand.joints[i]);
    }
    return record;
}

} // namespace SpaceConversions
