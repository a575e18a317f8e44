// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkSelector.h"

#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"

#include <cstdint>

namespace velk::capi::selector
{

ObjectRegistry<select::Selector, VelkSelectorHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<select::Selector, VelkSelectorHandle>> registry;
    return *registry;
}

VelkSelectorHandle create()
{
    return getRegistry().create<select::Selector>();
}

int32_t destroy(VelkSelectorHandle selector)
{
    return getRegistry().destroy(selector);
}

int32_t select(VelkSelectorHandle selector)
{
    select::Selector* const target = getRegistry().getRawPointer(selector);
    if (target == nullptr) {
        return kFailure;
    }
    target->select();
    return kSuccess;
}

int32_t unselect(VelkSelectorHandle selector)
{
    select::Selector* const target = getRegistry().getRawPointer(selector);
    if (target == nullptr) {
        return kFailure;
    }
    target->unselect();
    return kSuccess;
}

} // namespace velk::capi::selector
