// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"

namespace velk::math
{

/// A half-line. The direction need not be of unit length, and what a distance along it means is up to
/// the test: Plane::raycast normalises, AxisAlignedBox::raycast measures in lengths of the direction.
struct Ray
{
    TAL::Vector3<float> origin;
    TAL::Vector3<float> direction;
};

} // namespace velk::math
