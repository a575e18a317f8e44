// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/IDataSource.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::data_source
{

using Registry = ObjectRegistry<velk::data_source::IDataSource<data::HandData>, VelkDataSourceHandle>;

Registry& getRegistry();

/// False for the codes that the create functions fail with.
bool isValidDataSourceHandle(VelkDataSourceHandle handle);

VelkDataSourceHandle create(VelkDataSourceType type);
int32_t destroy(VelkDataSourceHandle handle);
int32_t update(VelkDataSourceHandle handle);
int32_t getData(VelkDataSourceHandle handle, velk_HandData* out);
int32_t setAttributeFloat(VelkDataSourceHandle handle, int attributeId, float value);

} // namespace velk::capi::data_source

namespace velk::capi::external_hand_source
{

int32_t setData(VelkDataSourceHandle handle, const velk_HandData* data);

} // namespace velk::capi::external_hand_source

namespace velk::capi::data_modifier
{

VelkDataSourceHandle create(VelkDataModifierType type, VelkDataSourceHandle source);

} // namespace velk::capi::data_modifier
