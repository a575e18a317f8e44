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
    float distance =
        0.0f; ///< From the query's point, or along its ray. A box hit from inside has it negative.
};

} // namespace velk::interaction::surface
