// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/utility/Subscription.h"

#include <memory>

namespace velk::interaction
{

/// The pose of a button's moving cap, which fingers push down from its rest towards the base. Renders
/// nothing: a host reads pose and extent.
///
///     =====  cap at rest, maxExtent over the base      o
///     - - -  cap under a finger, currentExtent        ===
///     _____  base: the fully pressed position        _____
///
/// The extent follows from the fingers that hover the interactable and nothing else, and is updated at the
/// end of the update of one of them. Heights are those over the interactable's backing surface, so the base
/// and that surface are expected to coincide.
class PokeButtonVisual
{
public:
    /// Local +z of `basePose` is the direction of the extent; metres. An interactable that is gone already
    /// ends the process. One that goes later leaves the cap at rest.
    PokeButtonVisual(std::weak_ptr<PokeInteractable> pokeInteractable, Posef basePose, float maxExtent);
    ~PokeButtonVisual() = default;

    PokeButtonVisual(const PokeButtonVisual&) = delete;
    PokeButtonVisual& operator=(const PokeButtonVisual&) = delete;

    /// A finger that is on the interactable already moves the cap only once another one comes.
    void setPokeInteractable(std::weak_ptr<PokeInteractable> pokeInteractable, Posef basePose,
                             float maxExtent);

    /// Takes effect at once, also with fingers present.
    void updateBasePose(const Posef& basePose, float maxExtent);

    float getCurrentExtent() const { return currentExtent_; }
    Posef getCurrentPose() const;

private:
    void handleInteractorAdded(PokeInteractor* interactor);
    void handleInteractorRemoved(PokeInteractor* interactor);
    void monitor(PokeInteractor* interactor);
    void stopMonitoring();
    void updateVisualPosition();

    std::weak_ptr<PokeInteractable> pokeInteractable_;
    utility::Subscription interactorAddedHandler_;
    utility::Subscription interactorRemovedHandler_;
    PokeInteractor* monitoredInteractor_ = nullptr; // kept valid by handleInteractorRemoved
    utility::Subscription interactorPostprocessHandler_;
    Posef basePose_;
    float maxExtent_;
    float currentExtent_;
};

} // namespace velk::interaction
