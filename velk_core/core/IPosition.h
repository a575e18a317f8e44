// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::input
{

/// Anything that has a position in world space.
class IPosition
{
public:
    virtual ~IPosition() = default;
    virtual Vector3f getPosition() const = 0;
};

} // namespace velk::input
