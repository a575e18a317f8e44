// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Ray.h"
#include "velk_core/core/IBounds.h"
#include "velk_core/core/IPose.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"

namespace velk::interaction::surface
{

/// As the `maxDistance` of a query.
inline constexpr float kNoLimit = 0.0f;

/// What rays hit and fingers come close to. Both queries return true for a hit; on false, `hit` may
/// hold anything. A `maxDistance` of 0 or less means no limit; what exactly is held against it is up to
/// the kind of surface. A query's point must not be a part of its `hit`.
class ISurface : public velk::input::IPose, public velk::core::IBounds
{
public:
    virtual bool raycast(const velk::math::Ray& ray, SurfaceHit& hit, float maxDistance) const = 0;
    virtual bool closestSurfacePoint(const Vector3f& point, SurfaceHit& hit, float maxDistance) const = 0;
};

} // namespace velk::interaction::surface
