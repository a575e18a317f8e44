// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/poke/PokeFrame.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"

#include <vector>

namespace velk::interaction
{

/// Fills `found` with all enabled interactables that the rules can let a finger hover or press in this frame,
/// and some that they cannot, in the order of registration: `lastFound`, if any, what is near the finger's
/// way, and what has changed or come since the finger's last update.
void gatherAround(const PokeFrame& frame, const PokeInteractor::Config& config, PokeInteractable* lastFound,
                  std::vector<PokeInteractable*>& found);

} // namespace velk::interaction
