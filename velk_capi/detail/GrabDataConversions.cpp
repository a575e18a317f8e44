// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/GrabDataConversions.h"

#include "velk_capi/detail/SpaceConversions.h"

#include <bit>
#include <cstddef>

namespace SpaceConversions
{

// Whole lists are copied at once.
static_assert(offsetof(talpVector3f, z) == offsetof(TAL::Vector3f, z));
static_assert(offsetof(talpQuatf, w) == offsetof(TAL::Quatf, w));
static_assert(offsetof(talpPosef, position) == offsetof(TAL::Posef, translation));

velk::data::HandPinchData capiToCore(const velk_HandPinchData& record)
{
    using Positions = decltype(velk::data::HandPinchData::jointPositions);
    return {std::bit_cast<Positions>(record.jointPositions)};
}

velk::data::HandPalmData capiToCore(const velk_HandPalmData& record)
{
    using Poses = decltype(velk::data::HandPalmData::jointPoses);
    return {std::bit_cast<Poses>(record.jointPoses), talpToTal(record.rootPose), record.handedness};
}

} // namespace SpaceConversions
