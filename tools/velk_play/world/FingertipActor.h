// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"
#include "world/Targets.h"

namespace velk_tools
{

/// A poke interactor that follows a joint of a recorded hand.
class FingertipActor
{
public:
    explicit FingertipActor(const Fingertip& fingertip);

    VelkInteractorHandle interactor() const { return interactor_; }
    void update(const Frame& frame, const Scene& scene, const PokeTargets& targets);
    /// Whether the last update may have let go of a hand that this finger's press held, or an earlier one
    /// since the press.
    bool isReleasing() const { return releasing_; }
    FingertipView view(const PokeTargets& targets) const;

private:
    void follow(const Frame& frame, const Scene& scene, const PokeTargets& targets);
    bool isInFront(const Scene& scene, const PokeTargets& targets) const;
    void letGo(const Scene& scene, const PokeTargets& targets);
    void moveTo(Vec3 point);
    void pokeAt(Vec3 point);

    Fingertip fingertip_;
    Interactor interactor_;
    // A hand that is nothing but the fingertip. Its limiter shows the touch point, which no call of its own
    // does.
    DataSource tipHand_;
    DataSource shownTip_;
    PokeLimiter limiter_;
    double lastSeen_ = 0;
    bool tracked_ = false;
    bool held_ = false; ///< Pressed, and not in front since.
    bool releasing_ = false;
    bool arrived_ = false; ///< Whether the interactor has followed the finger since tracking began.
    Vec3 tip_{};
    Vec3 poked_{}; ///< Where the interactor is. A new one is at the origin of the space.
};

} // namespace velk_tools
