// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::math
{

/// A half-line. The direction need not be of unit length, and what a distance along it means is up to
/// the test: Plane::raycast normalises, AxisAlignedBox::raycast measures in lengths of the direction.
struct Ray
{
    Vector3f origin;
    Vector3f direction;
};

} // namespace velk::math
