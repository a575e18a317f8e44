// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"

namespace velk::input
{

/// Anything that has a pose in world space.
class IPose
{
public:
    virtual ~IPose() = default;
    virtual TAL::Pose<float> getPose() const = 0;
};

} // namespace velk::input
