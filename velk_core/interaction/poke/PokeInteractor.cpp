// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The course of a press. The skin's height over the surface with the default settings, against time:
//
//    0.002  - - - - - - - - - - - - - - - - - - - - - - -x- - -  surfaceReleaseThreshold: above it, released
//    0      ==========x===============================x========  surface: pressed at first contact
//                      x                            x
//                        x                        x              0.02 over the deepest point: recoiled
//                           x                 x
//                                x       x                       deepest point
//                                    x
//   -0.3    - - - - - - - - - - - - - - - - - - - - - - - - - -  cancelSelectNormal: deeper, cancelled
//
//   state      the finger                                            becomes
//   hover      crosses the surface inward                            pressed
//   pressed    rises above the release threshold                     hover
//   pressed    goes too deep, or too far along the surface           nothing, with a Cancel event
//   pressed    retreats from its deepest point beyond exitDistance   recoiled, which releases
//   recoiled   goes in beyond reEnterDistance from its shallowest    pressed
//              point since
//   recoiled   rises above the release threshold                     hover
//   recoiled   goes too deep, or too far along the surface           hover for one more update, with a
//                                                                    Cancel event
#include "velk_core/interaction/poke/PokeInteractor.h"

#include "math/LookRotation.h"
#include "velk_core/interaction/poke/PokeGathering.h"
#include "velk_core/interaction/poke/PokeGeometry.h"
#include "velk_core/interaction/poke/PokeRelease.h"
#include "velk_core/interaction/poke/PokeSearch.h"
#include "velk_core/witness/Witness.h"

#include <cmath>
#include <typeinfo>
#include <utility>

namespace velk::interaction
{

using poke_geometry::computeDepth;
using poke_release::hasLeftSurface;
using poke_release::shouldCancel;
using surface::SurfaceHit;

namespace
{

Posef backingPose(const PokeInteractable& interactable)
{
    return interactable.getSurfacePatch().getBackingSurface().getPose();
}

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
{
    updateOrigin();
    subscribeToWhenInteractableUnset([this](PokeInteractable*) {
        if (recoil_.getInteractable() != nullptr) {
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
    return frame_.getBackingHit(interactable, hit);
}

bool PokeInteractor::getPatchHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    return frame_.getPatchHit(interactable, hit);
}

PokeInteractor* PokeInteractor::getInteractorPtr()
{
    return this;
}

void PokeInteractor::doPreprocess()
{
    PointerInteractor::doPreprocess();
    // A subclass may forbid interactables as it likes.
    frame_.setRemembersAll(search::SurfaceIndex::scansAll() || typeid(*this) != typeid(PokeInteractor));
    updateOrigin();
    frame_.resetHits();
}

void PokeInteractor::updateOrigin()
{
    if (positionSource_) {
        setPointPosition(positionSource_->getPosition());
    }
    frame_.moveTo(pointTransform_.translation);
}

void PokeInteractor::doPostprocess()
{
    PointerInteractor::doPostprocess();
    frame_.rememberSurfaces(*this);
}

// What is being pressed, or has been recoiled from, stays the candidate without a search. Both searches look
// at the same few interactables, in the order of their registration.
PokeInteractable* PokeInteractor::computeCandidate()
{
    if (recoil_.getInteractable() != nullptr) {
        return recoil_.getInteractable();
    }
    if (hitInteractable_ != nullptr) {
        return hitInteractable_;
    }
    PokeSearch search(frame_, config_, hoverInteractable_);
    gatherInRange(search);
    const PokeCandidate pressed = search.findPressed(inRange_);
    if (pressed.interactable != nullptr) {
        takeContactFrom(*pressed.interactable);
        if (!search.isVetoed(pressed, touchPoint_, inRange_)) {
            hitInteractable_ = pressed.interactable;
            hoverInteractable_ = pressed.interactable;
            return pressed.interactable;
        }
    }
    hoverInteractable_ = search.findHovered(inRange_).interactable;
    if (hoverInteractable_ != nullptr) {
        takeContactFrom(*hoverInteractable_);
    }
    return hoverInteractable_;
}

void PokeInteractor::gatherInRange(const PokeSearch& search)
{
    gatherAround(frame_, config_, hoverInteractable_, inRange_);
    std::erase_if(inRange_, [this, &search](PokeInteractable* interactable) {
        return !search.isInRange(*interactable) ||
               !witness::judge(witness::Rule::Admitted,
                               PokeInteractable::getStaticRegistry().admits(*this, *interactable),
                               *interactable);
    });
}

void PokeInteractor::takeContactFrom(const PokeInteractable& interactable)
{
    PokeFrame::Hits hits;
    frame_.getHits(interactable, hits);
    closestPoint_ = hits.patch.point;
    touchPoint_ = hits.backing.point;
    touchNormal_ = hits.backing.normal;
}

bool PokeInteractor::computeShouldSelect()
{
    if (PokeInteractable* const recoiledFrom = recoil_.getInteractable()) {
        const float depth = computeDepth(*recoiledFrom, getOrigin(), config_.radius);
        hitInteractable_ = recoil_.pressesAgain(depth) ? recoiledFrom : nullptr;
    }
    return hitInteractable_ != nullptr;
}

bool PokeInteractor::computeShouldUnselect() const
{
    return hitInteractable_ == nullptr;
}

void PokeInteractor::interactableSelected(PokeInteractable* interactable)
{
    SurfaceHit hit;
    if (interactable != nullptr && getBackingHit(*interactable, hit)) {
        pressPoint_.begin(backingPose(*interactable), touchPoint_, hit.point,
                          interactable->getDragThresholds().dragEaseCurve);
        recoil_.pressBegan();
        setIsPassedSurface(true);
    }
    PointerInteractor::interactableSelected(interactable);
}

void PokeInteractor::doHoverUpdate()
{
    SurfaceHit hit;
    if (interactable() != nullptr && getBackingHit(*interactable(), hit)) {
        touchPoint_ = hit.point;
        touchNormal_ = hit.normal;
    }
    PokeInteractable* const recoiledFrom = recoil_.getInteractable();
    if (recoiledFrom == nullptr) {
        return;
    }
    if (!surfaceUpdate(recoiledFrom)) {
        endRecoil();
    } else if (shouldCancel(*recoiledFrom, getOrigin(), config_.radius)) {
        cancel(*recoiledFrom);
    }
}

void PokeInteractor::doSelectUpdate()
{
    PokeInteractable* const pressed = selectedInteractable();
    if (!surfaceUpdate(pressed)) {
        hitInteractable_ = nullptr;
        // After a press out of a recoil the recoil is still on: the next hover update ends both.
        setIsPassedSurface(recoil_.getInteractable() != nullptr);
        return;
    }
    if (shouldCancel(*pressed, getOrigin(), config_.radius)) {
        cancel(*pressed);
        return;
    }
    const float depth = computeDepth(*pressed, getOrigin(), config_.radius);
    if (recoil_.shouldRecoil(depth, std::as_const(*pressed).getConfig().recoilAssist)) {
        hitInteractable_ = nullptr;
        recoil_.begin(*pressed, depth);
        setIsPassedSurface(true);
    }
}

// Moves the touch point for this frame of a press or a recoil. False when contact has ended.
bool PokeInteractor::surfaceUpdate(const PokeInteractable* interactable)
{
    SurfaceHit hit;
    if (interactable == nullptr || !getBackingHit(*interactable, hit) ||
        hasLeftSurface(*interactable, getOrigin(), config_.radius, config_.surfaceReleaseThreshold)) {
        return false;
    }
    const float normalDelta =
        std::fabs(computeDepth(*interactable, getOrigin(), config_.radius) -
                  computeDepth(*interactable, frame_.getPreviousOrigin(), config_.radius));
    pressPoint_.follow(backingPose(*interactable), hit.point, normalDelta, interactable->getConfig());
    placeTouchPoint(*interactable);
    return true;
}

void PokeInteractor::placeTouchPoint(const PokeInteractable& pressed)
{
    const PokeInteractable& hovered = interactable() != nullptr ? *interactable() : pressed;
    touchPoint_ = backingPose(hovered).Transform(pressPoint_.getLocalPoint());
    SurfaceHit hit;
    pressed.closestBackingSurfaceHit(touchPoint_, hit);
    touchNormal_ = hit.normal;
}

void PokeInteractor::endRecoil()
{
    recoil_.end();
    setIsPassedSurface(false);
}

// A sweep later in this update then has no length, so the finger does not press again at once.
void PokeInteractor::cancel(PokeInteractable& interactable)
{
    generatePointerEvent(PointerEventType::Cancel, &interactable);
    frame_.forgetMovement();
    hoverInteractable_ = nullptr;
    hitInteractable_ = nullptr;
    endRecoil();
}

void PokeInteractor::handleDisabled()
{
    hitInteractable_ = nullptr;
    PointerInteractor::handleDisabled();
}

// A press can still be pending, and the last search is still remembered.
void PokeInteractor::interactableDestroyed(const PokeInteractable* interactable)
{
    PointerInteractor::interactableDestroyed(interactable);
    for (PokeInteractable** remembered : {&hoverInteractable_, &hitInteractable_}) {
        if (*remembered == interactable) {
            *remembered = nullptr;
        }
    }
    if (recoil_.getInteractable() == interactable) {
        recoil_.end();
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
