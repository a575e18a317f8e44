// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandData.h"

#include <velk/velk.h>

namespace velk::capi::data_source
{

/// The joints of the C records, and of every hand made through the C interface.
inline constexpr int kNumJointsTalHand = 24;

} // namespace velk::capi::data_source

namespace SpaceConversions
{

/// Into a hand that is used again, whose joints then need no new memory.
void capiToCore(const velk_HandData& record, velk::data::HandData& hand);

/// Reads 24 joints, whatever the count that the hand gives.
velk_HandData coreToCapi(const velk::data::HandData& hand);

} // namespace SpaceConversions
