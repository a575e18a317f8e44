// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"

namespace velk::interaction::proximity_field
{

/// Tells which of its points is nearest to a given one.
class IProximityField
{
public:
    virtual ~IProximityField() = default;
    virtual TAL::Vector3<float> computeClosestPoint(const TAL::Vector3<float>& point) = 0;
};

} // namespace velk::interaction::proximity_field
