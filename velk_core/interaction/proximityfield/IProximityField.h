// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction::proximity_field
{

/// Tells which of its points is nearest to a given one.
class IProximityField
{
public:
    virtual ~IProximityField() = default;
    virtual Vector3f computeClosestPoint(const Vector3f& point) = 0;
};

} // namespace velk::interaction::proximity_field
