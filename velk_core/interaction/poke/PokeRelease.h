// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

namespace velk::interaction
{
class PokeInteractable;
}

/// The rules by which a press ends, but for a recoil (PokeRecoil). Metres, from the skin of the finger's
/// sphere at `origin`.
namespace velk::interaction::poke_release
{

/// The skin has risen above the surface by more than the release threshold.
bool hasLeftSurface(const PokeInteractable& interactable, const Vector3f& origin, float radius,
                    float surfaceReleaseThreshold);

/// The finger is too deep, or too far along the surface.
bool shouldCancel(const PokeInteractable& interactable, const Vector3f& origin, float radius);

} // namespace velk::interaction::poke_release
