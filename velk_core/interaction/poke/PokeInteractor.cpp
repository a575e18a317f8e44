// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "math/Aliases.h"

#include "math/LookRotation.h"
#include "velk_core/core/TimeProvider.h"

#include <utility>

namespace velk::interaction
{

using surface::SurfaceHit;

namespace
{

// Seconds. Each press brings the curve of its interactable; this one is never started.
constexpr float kInitialEaseDuration = 1.0f;

} // namespace

PokeInteractor::PokeInteractor()
    : PokeInteractor(Config())
{
}

PokeInteractor::PokeInteractor(const Config& config, std::shared_ptr<active_state::IActiveState> activeState,
                               std::shared_ptr<core::IPayload> payload,
                               std::shared_ptr<input::IPosition> positionSource)
    : PointerInteractor(std::move(activeState), std::move(payload))
    , config_(config)
    , positionSource_(std::move(positionSource))
    , dragEaseCurve_(kInitialEaseDuration, core::TimeProvider::defaultTimeProvider())
{
    updateOrigin();
    subscribeToWhenInteractableUnset([this](PokeInteractable*) {
        if (recoilInteractable_ != nullptr) {
            endRecoil();
        }
    });
    PointerInteractor::onEnable();
}

PokeInteractor::~PokeInteractor()
{
    PointerInteractor::onDisable();
}

void PokeInteractor::setIsPassedSurface(bool passed)
{
    if (std::exchange(passedSurface_, passed) != passed) {
        whenPassedSurfaceChanged_.invoke(passed);
    }
}

uint32_t PokeInteractor::subscribeToWhenPassedSurfaceChanged(std::function<void(bool)>&& handler)
{
    return whenPassedSurfaceChanged_.subscribe(std::move(handler));
}

void PokeInteractor::unsubscribeToWhenPassedSurfaceChanged(uint32_t token)
{
    whenPassedSurfaceChanged_.unsubscribe(token);
}

bool PokeInteractor::getBackingHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    return hitCache_.getBackingHit(interactable, hit);
}

bool PokeInteractor::getPatchHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    return hitCache_.getPatchHit(interactable, hit);
}

PokeInteractor* PokeInteractor::getInteractorPtr()
{
    return this;
}

void PokeInteractor::doPreprocess()
{
    PointerInteractor::doPreprocess();
    updateOrigin();
    hitCache_.reset(getOrigin());
}

void PokeInteractor::updateOrigin()
{
    if (positionSource_) {
        setPointPosition(positionSource_->getPosition());
    }
    previousOrigin_ = origin_;
    origin_ = pointTransform_.translation;
}

void PokeInteractor::doPostprocess()
{
    PointerInteractor::doPostprocess();
    storeSurfaceTransforms();
}

void PokeInteractor::storeSurfaceTransforms()
{
    for (const PokeInteractable* interactable : PokeInteractable::getStaticRegistry().list(*this, {})) {
        previousSurfaceTransforms_.assign(interactable->getSlot()) =
            interactable->getSurfacePatch().getBackingSurface().getPose().Inverted();
    }
}

// Where last frame's point would be now, had it moved with the surface. So a surface that comes towards a
// resting finger sees a moving one. A surface first met in this frame counts as not having moved.
Vector3f PokeInteractor::previousOriginCarriedBy(const PokeInteractable& interactable) const
{
    const Posef pose = interactable.getSurfacePatch().getBackingSurface().getPose();
    const Posef* previousInverse = previousSurfaceTransforms_.find(interactable.getSlot());
    const Vector3f local =
        (previousInverse != nullptr ? *previousInverse : pose.Inverted()).Transform(previousOrigin_);
    return pose.Transform(local);
}

// What is being pressed, or has been recoiled from, stays the candidate without a search. Both searches look
// at the same few interactables, in the order of their registration.
PokeInteractable* PokeInteractor::computeCandidate()
{
    if (recoilInteractable_ != nullptr) {
        return recoilInteractable_;
    }
    if (hitInteractable_ != nullptr) {
        return hitInteractable_;
    }
    const Interactables inRange = PokeInteractable::getStaticRegistry().list(
        *this, [this](const PokeInteractable* interactable) { return interactableInRange(*interactable); });
    if (PokeInteractable* pressed = computeSelectCandidate(inRange)) {
        hitInteractable_ = pressed;
        hoverInteractable_ = pressed;
        return pressed;
    }
    hoverInteractable_ = computeHoverCandidate(inRange);
    return hoverInteractable_;
}

void PokeInteractor::takeContactFrom(const PokeInteractable& interactable)
{
    SurfaceHit backing;
    SurfaceHit patch;
    getBackingHit(interactable, backing);
    getPatchHit(interactable, patch);
    closestPoint_ = patch.point;
    touchPoint_ = backing.point;
    touchNormal_ = backing.normal;
}

void PokeInteractor::endRecoil()
{
    recoilInteractable_ = nullptr;
    setIsPassedSurface(false);
}

// A sweep later in this update then has no length, so the finger does not press again at once.
void PokeInteractor::cancel(PokeInteractable& interactable)
{
    generatePointerEvent(PointerEventType::Cancel, &interactable);
    previousOrigin_ = origin_;
    hoverInteractable_ = nullptr;
    hitInteractable_ = nullptr;
    endRecoil();
}

void PokeInteractor::handleDisabled()
{
    hitInteractable_ = nullptr;
    PointerInteractor::handleDisabled();
}

// The base's links are gone by now. A press can still be pending, and the last search is still remembered.
void PokeInteractor::interactableDestroyed(const PokeInteractable* interactable)
{
    PointerInteractor::interactableDestroyed(interactable);
    for (PokeInteractable** remembered : {&hoverInteractable_, &hitInteractable_, &recoilInteractable_}) {
        if (*remembered == interactable) {
            *remembered = nullptr;
        }
    }
}

Posef PokeInteractor::computePointerPose()
{
    SurfaceHit hit;
    if (interactable() == nullptr || !interactable()->closestBackingSurfaceHit(touchPoint_, hit)) {
        return Posef::Identity();
    }
    return Posef(math::quaternion::lookRotationSafe(hit.normal), touchPoint_);
}

} // namespace velk::interaction
