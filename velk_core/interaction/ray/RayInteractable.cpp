// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/ray/RayInteractable.h"

#include "velk_common/NeverDestroyed.h"
#include "velk_core/interaction/ray/RayInteractor.h"
#include "velk_core/interaction/search/SurfaceRegion.h"

#include <new>
#include <utility>

namespace velk::interaction
{

RayInteractable::RayInteractable(std::shared_ptr<surface::ISurface> surface,
                                 std::shared_ptr<IPointableElement> pointableElement,
                                 std::shared_ptr<surface::ISurface> selectSurface,
                                 std::unique_ptr<movement::IMovementProvider> movementProvider,
                                 std::shared_ptr<surface::ISurface> magnetismSurface)
    : PointerInteractable(std::move(pointableElement))
    , surface_(std::move(surface))
    , selectSurface_(std::move(selectSurface))
    , magnetismSurface_(std::move(magnetismSurface))
    , movementProvider_(std::move(movementProvider))
{
    if (!selectSurface_) {
        selectSurface_ = surface_;
    }
    PointerInteractable::onEnable();
}

RayInteractable::~RayInteractable()
{
    PointerInteractable::onDisable();
    getStaticRegistry().interactableDestroyed(this);
}

std::size_t RayInteractable::magneticCount_ = 0;

void RayInteractable::enable()
{
    if (getState() != InteractableState::Disabled) {
        return;
    }
    enterIndex();
    try {
        PointerInteractable::enable();
    } catch (const std::bad_alloc&) {
        if (getState() == InteractableState::Disabled) {
            leaveIndex();
        }
        throw;
    }
}

void RayInteractable::disable()
{
    PointerInteractable::disable();
    leaveIndex();
}

void RayInteractable::enterIndex()
{
    getStaticIndex().enter(place_, search::findRegionOfRays(surface_.get()));
    listenToSurface();
    magneticCount_ += magnetismSurface_ != nullptr ? 1 : 0;
}

void RayInteractable::leaveIndex()
{
    if (place_.isEntered()) {
        getStaticIndex().leave(place_);
        stopListening();
        magneticCount_ -= magnetismSurface_ != nullptr ? 1 : 0;
    }
}

void RayInteractable::listenToSurface()
{
    stopListening();
    if (auto* source = search::findChangeSource(surface_.get())) {
        listenTo(*source);
    }
}

void RayInteractable::surfaceChanged()
{
    getStaticIndex().change(place_, search::findRegionOfRays(surface_.get()));
}

surface::ISurface& RayInteractable::getSurface() const
{
    return *surface_;
}

void RayInteractable::setSurface(std::shared_ptr<surface::ISurface> surface)
{
    surface_ = std::move(surface);
    if (place_.isEntered()) {
        listenToSurface();
        surfaceChanged();
    }
}

bool RayInteractable::raycastSelectSurface(const math::Ray& ray, surface::SurfaceHit& hit,
                                           float maxDistance) const
{
    return selectSurface_ && selectSurface_->raycast(ray, hit, maxDistance);
}

bool RayInteractable::raycastMagnetismSurface(const math::Ray& ray, surface::SurfaceHit& hit,
                                              float maxDistance) const
{
    return magnetismSurface_ && magnetismSurface_->raycast(ray, hit, maxDistance);
}

std::unique_ptr<movement::IMovement> RayInteractable::generateMovement(const Posef& from,
                                                                       const Posef& to) const
{
    return movementProvider_ ? movementProvider_->createMovement(from, to) : nullptr;
}

InteractableRegistry<RayInteractor, RayInteractable>& RayInteractable::getStaticRegistry()
{
    static common::NeverDestroyed<InteractableRegistry<RayInteractor, RayInteractable>> registry;
    return *registry;
}

search::SurfaceIndex& RayInteractable::getStaticIndex()
{
    static common::NeverDestroyed<search::SurfaceIndex> index;
    return *index;
}

std::size_t RayInteractable::getMagneticCount()
{
    return magneticCount_;
}

InteractableRegistry<RayInteractor, RayInteractable>& RayInteractable::getRegistry()
{
    return getStaticRegistry();
}

RayInteractable* RayInteractable::getInteractablePtr()
{
    return this;
}

} // namespace velk::interaction
