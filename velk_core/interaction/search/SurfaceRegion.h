// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/search/Place.h"
#include "velk_core/interaction/surfaces/ISurface.h"
#include "velk_core/interaction/surfaces/ISurfacePatch.h"
#include "velk_core/interaction/surfaces/SurfaceChanges.h"

namespace velk::interaction::search
{

/// The surface as one that tells of its changes, or null. Only surfaces of just the library's own classes do:
/// what a subclass makes of them is not known.
surface::ChangeSource* findChangeSource(surface::ISurface* surface);

/// All points that a ray can hit.
Region findRegionOfRays(const surface::ISurface* surface);

/// Metres that a finger can go in one update and never both cross a patch's plane beyond its end and come to
/// lie over the patch: a patch so near to the end of its plane is odd.
inline constexpr float kShortWay = 10.0f;

/// All places of a point that lies over the patch or by its edge, not higher than `height` and not farther
/// out than `margin`.
Region findRegionOfTouch(const surface::ISurfacePatch* patch, float height, float margin);

} // namespace velk::interaction::search
