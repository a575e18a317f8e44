// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/AxisAlignedBox.h"

namespace velk::core
{

/// Anything that fits in a box along the world's axes.
class IBounds
{
public:
    virtual ~IBounds() = default;
    virtual velk::math::AxisAlignedBox getBounds() const = 0;
};

} // namespace velk::core
