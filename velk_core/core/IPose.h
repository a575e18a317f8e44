// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::input
{

/// Anything that has a pose in world space.
class IPose
{
public:
    virtual ~IPose() = default;
    virtual Posef getPose() const = 0;
};

} // namespace velk::input
