// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkBoxProximityField.h"

#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkProximityField.h"
#include "velk_core/interaction/proximityfield/BoxProximityField.h"

#include <memory>

namespace velk::capi::box_proximity_field
{

using interaction::proximity_field::BoxProximityField;

VelkProximityFieldHandle create(const talpPosef* pose, const talpVector3f* size)
{
    return proximity_field::getRegistry().insert(std::make_shared<BoxProximityField>(
        SpaceConversions::talpToTal(*pose), SpaceConversions::talpToTal(*size)));
}

int32_t setPose(VelkProximityFieldHandle field, const talpPosef* pose)
{
    auto* box = getRawPointerAs<BoxProximityField>(proximity_field::getRegistry(), field);
    if (box == nullptr) {
        return kFailure;
    }
    box->setPose(SpaceConversions::talpToTal(*pose));
    return kSuccess;
}

int32_t setSize(VelkProximityFieldHandle field, const talpVector3f* size)
{
    auto* box = getRawPointerAs<BoxProximityField>(proximity_field::getRegistry(), field);
    if (box == nullptr) {
        return kFailure;
    }
    box->setSize(SpaceConversions::talpToTal(*size));
    return kSuccess;
}

} // namespace velk::capi::box_proximity_field
