// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <chrono>
#include <vector>

#include "host/scene/Scene.h"
#include "world/FingertipActor.h"
#include "world/HandActor.h"
#include "world/Observation.h"
#include "world/RayActor.h"
#include "world/Targets.h"
#include "world/Tracks.h"

namespace velk_tools
{

/// All that a scene makes of the library's objects. scene must outlive it.
class World
{
public:
    World(const Scene& scene, const Recording& recording);

    /// From now on a frame ends after the curves on which drawn hands return, so that what is shown doesn't
    /// depend on the time that a frame takes.
    void settleCurves() { settlesCurves_ = true; }

    VelkInteractorHandle ray(std::size_t i) const { return rays_[i].interactor(); }
    VelkInteractorHandle fingertip(std::size_t i) const { return fingertips_[i].interactor(); }
    VelkPinchGrabAPIHandle pinch(std::size_t i) const { return pinches_[i].pinch(); }
    VelkPalmGrabAPIHandle palm(std::size_t i) const { return palms_[i].palm(); }
    int rayTargetOf(VelkInteractableHandle handle) const { return rayTargets_.indexOf(handle); }
    int patchOf(VelkInteractableHandle handle) const { return pokeTargets_.indexOf(handle); }

    /// One frame of the host: feeds what was recorded, updates everything, and reads the answers.
    Observation update(std::size_t number, const Frame& frame);

private:
    void pressSelects(const Frame& frame);
    void updateAll(const Frame& frame);
    void settle();
    void read(Observation& seen) const;

    const Scene& scene_;
    bool settlesCurves_ = false;
    std::chrono::steady_clock::duration waited_{}; ///< By settle(), in the present frame.
    RayTargets rayTargets_;
    PokeTargets pokeTargets_;
    std::vector<RayActor> rays_;
    std::vector<FingertipActor> fingertips_;
    std::vector<HandActor> hands_;
    std::vector<GripActor> pinches_;
    std::vector<GripActor> palms_;
    std::vector<DirectionActor> directions_;
};

} // namespace velk_tools
