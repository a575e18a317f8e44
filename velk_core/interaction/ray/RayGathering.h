// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Ray.h"
#include "velk_core/interaction/ray/RayInteractable.h"

#include <vector>

namespace velk::interaction
{

/// Fills `found` with all enabled interactables that the ray can hit, and some that it cannot, in the order
/// of registration. How far a hit may be plays no part, since surfaces read that limit in their own way, and
/// hits that are equally far are decided among all of them.
void gatherAlong(const math::Ray& ray, std::vector<RayInteractable*>& found);

} // namespace velk::interaction
