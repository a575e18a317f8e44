// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/visuals/PokeButtonVisual.h"

#include "velk_common/VelkAssert.h"
#include "velk_core/interaction/poke/PokeGeometry.h"

#include <cmath>
#include <utility>

namespace velk::interaction
{

using utility::Subscription;

namespace
{

// The cap stays under the lowest finger, never above `extent` and never below the base.
float calculateExtentFromState(const PokeInteractable* interactable, float extent)
{
    if (interactable == nullptr) {
        return extent;
    }
    for (const PokeInteractor* interactor : interactable->getInteractors()) {
        extent = std::fmin(poke_geometry::computeDistanceAbove(*interactable, interactor->getOrigin(),
                                                               interactor->getRadius()),
                           extent);
    }
    return extent > 0.0f ? extent : 0.0f; // of an extent of -0, std::fmax gives either zero
}

} // namespace

PokeButtonVisual::PokeButtonVisual(std::weak_ptr<PokeInteractable> pokeInteractable, Posef basePose,
                                   float maxExtent)
    : basePose_(basePose)
    , maxExtent_(maxExtent)
    , currentExtent_(maxExtent)
{
    common::velkAssert(pokeInteractable.lock() != nullptr);
    setPokeInteractable(std::move(pokeInteractable), basePose, maxExtent);
}

void PokeButtonVisual::setPokeInteractable(std::weak_ptr<PokeInteractable> pokeInteractable, Posef basePose,
                                           float maxExtent)
{
    // The new subscriptions are the one step that can fail, so they come before any change.
    Subscription added;
    Subscription removed;
    if (const auto interactable = pokeInteractable.lock()) {
        added = Subscription::with<&PokeInteractable::unsubscribeToWhenInteractorAdded>(
            interactable, interactable->subscribeToWhenInteractorAdded(
                              [this](PokeInteractor* interactor) { handleInteractorAdded(interactor); }));
        removed = Subscription::with<&PokeInteractable::unsubscribeToWhenInteractorRemoved>(
            interactable, interactable->subscribeToWhenInteractorRemoved(
                              [this](PokeInteractor* interactor) { handleInteractorRemoved(interactor); }));
    }
    stopMonitoring();
    interactorAddedHandler_ = std::move(added);
    interactorRemovedHandler_ = std::move(removed);
    pokeInteractable_ = std::move(pokeInteractable);
    basePose_ = basePose;
    maxExtent_ = maxExtent;
    updateVisualPosition();
}

void PokeButtonVisual::updateBasePose(const Posef& basePose, float maxExtent)
{
    basePose_ = basePose;
    maxExtent_ = maxExtent;
    updateVisualPosition();
}

Posef PokeButtonVisual::getCurrentPose() const
{
    return Posef(basePose_.rotation, basePose_.Transform(Vector3f(0.0f, 0.0f, currentExtent_)));
}

// One finger's frame is enough to update: the update looks at all of them.
void PokeButtonVisual::handleInteractorAdded(PokeInteractor* interactor)
{
    if (monitoredInteractor_ == nullptr) {
        monitor(interactor);
    }
}

// With another finger still there, the extent waits for that one's frame.
void PokeButtonVisual::handleInteractorRemoved(PokeInteractor* interactor)
{
    if (interactor != monitoredInteractor_) {
        return;
    }
    const auto interactable = pokeInteractable_.lock();
    if (interactable != nullptr && interactable->getInteractorsCount() != 0) {
        monitor(*interactable->getInteractors().begin());
        return;
    }
    stopMonitoring();
    updateVisualPosition();
}

void PokeButtonVisual::monitor(PokeInteractor* interactor)
{
    // From one finger to the next the subscription moves: that happens in destructors too, which have no
    // memory to ask for.
    const uint32_t token = monitoredInteractor_ != nullptr
                               ? interactor->takeOverWhenPostprocessed(
                                     *monitoredInteractor_, interactorPostprocessHandler_.release())
                               : interactor->subscribeToWhenPostprocessed([this] { updateVisualPosition(); });
    interactorPostprocessHandler_ =
        Subscription::with<&PokeInteractor::unsubscribeToWhenPostprocessed>(*interactor, token);
    monitoredInteractor_ = interactor;
}

void PokeButtonVisual::stopMonitoring()
{
    interactorPostprocessHandler_.end();
    monitoredInteractor_ = nullptr;
}

void PokeButtonVisual::updateVisualPosition()
{
    currentExtent_ = calculateExtentFromState(pokeInteractable_.lock().get(), maxExtent_);
}

} // namespace velk::interaction
