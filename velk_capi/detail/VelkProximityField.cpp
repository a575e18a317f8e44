// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkProximityField.h"

#include "velk_common/NeverDestroyed.h"

namespace velk::capi::proximity_field
{

Registry& getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

int32_t destroy(VelkProximityFieldHandle field)
{
    return getRegistry().destroy(field);
}

} // namespace velk::capi::proximity_field
