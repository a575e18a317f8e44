// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction::surface
{

/// What a query found on a surface, in world space.
struct SurfaceHit
{
    Vector3f point;
    Vector3f normal;
    /// From the query's point, or along its ray. Negative for a box hit from inside.
    float distance = 0.0f;
};

} // namespace velk::interaction::surface
