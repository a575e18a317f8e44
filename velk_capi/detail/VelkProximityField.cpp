// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkProximityField.h"

namespace velk::capi::proximity_field
{

Registry& getRegistry()
{
    static Registry registry;
    return registry;
}

int32_t destroy(VelkProximityFieldHandle field)
{
    return getRegistry().destroy(field);
}

} // namespace velk::capi::proximity_field
