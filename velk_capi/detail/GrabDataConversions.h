// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandPalmData.h"
#include "velk_core/data/HandPinchData.h"

#include <velk/velk.h>

namespace SpaceConversions
{

velk::data::HandPinchData capiToCore(const velk_HandPinchData& record);
velk::data::HandPalmData capiToCore(const velk_HandPalmData& record);

} // namespace SpaceConversions
