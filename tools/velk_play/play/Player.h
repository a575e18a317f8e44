// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <memory>
#include <vector>

#include "play/Observer.h"

namespace velk_tools
{

enum class Pace
{
    AsFastAsPossible,
    RealTime, ///< Waits for each frame's own time, so that the library's timed curves run as they would for a
              ///< user.
    Settled ///< Waits for timed curves to end, so that no answer depends on the clock. Needs withoutEasing().
};

/// The scene with touch points that follow the finger at once. The easing of a drag is the one curve that is
/// read in the very call that starts it.
Scene withoutEasing(Scene scene);

/// Plays a recording through a scene, frame by frame, and tells the observers.
void play(const Scene& scene, const Recording& recording,
          const std::vector<std::unique_ptr<Observer>>& observers, Pace pace);

} // namespace velk_tools
