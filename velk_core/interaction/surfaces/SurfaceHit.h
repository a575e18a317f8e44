// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"

namespace velk::interaction::surface
{

/// What a query found on a surface, in world space.
struct SurfaceHit
{
    TAL::Vector3<float> point;
    TAL::Vector3<float> normal;
    float distance =
        0.0f; ///< From the query's point, or along its ray. A box hit from inside has it negative.
};

} // namespace velk::interaction::surface
