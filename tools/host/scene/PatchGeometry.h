// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "host/scene/Scene.h"

namespace velk_tools
{

/// The radius of the library's poking sphere, in metres; all heights are measured from its skin.
inline constexpr float kTipRadius = 0.005f;
/// Metres over a surface, more than those at which the library ends a recoil.
inline constexpr float kClearOfRecoil = 0.003f;

/// A rectangle in a surface's own frame.
struct Area
{
    float left;
    float right;
    float bottom;
    float top;
};

/// The part of a patch that its clippers leave.
Area areaOf(const Patch& patch);

/// From a patch to a point.
float distanceTo(const Patch& patch, Vec3 point);

/// Whether a fingertip on the straight way between two points comes through the patch, or to touch it, from
/// its front.
bool comesThrough(const Patch& patch, Vec3 from, Vec3 to);

} // namespace velk_tools
