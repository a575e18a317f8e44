// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeInteractable.h"

#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkAssert.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/search/SurfaceRegion.h"

#include <algorithm>
#include <new>
#include <typeinfo>
#include <utility>

namespace velk::interaction
{

namespace
{

// std::max and std::min with the old value first: a NaN on either side leaves it as it is.
void normalise(PokeInteractable::Config& config)
{
    config.exitHoverNormal = std::max(config.exitHoverNormal, config.enterHoverNormal);
    config.exitHoverTangent = std::max(config.exitHoverTangent, config.enterHoverTangent);
    if (config.cancelSelectTangent > 0.0f) {
        config.cancelSelectTangent = std::max(config.cancelSelectTangent, config.exitHoverTangent);
    }
    PokeInteractable::MinThresholdsConfig& minimum = config.minThresholds;
    if (minimum.enabled && minimum.minNormal > 0.0f) {
        minimum.minNormal = std::min(minimum.minNormal, config.enterHoverNormal);
    }
}

} // namespace

PokeInteractable::PokeInteractable(const Config& config, std::shared_ptr<surface::ISurfacePatch> surfacePatch,
                                   std::shared_ptr<IPointableElement> pointableElement)
    : PointerInteractable(std::move(pointableElement))
    , config_(config)
    , surfacePatch_(std::move(surfacePatch))
{
    common::velkAssert(surfacePatch_ != nullptr);
    normalise(config_);
    PointerInteractable::onEnable();
}

PokeInteractable::~PokeInteractable()
{
    // First, so that no finger remembers it, which could need memory.
    leaveIndex();
    PointerInteractable::onDisable();
    getStaticRegistry().interactableDestroyed(this);
}

void PokeInteractable::enable()
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

void PokeInteractable::disable()
{
    if (place_.isEntered()) {
        PokeFrame::rememberInAll(*this);
        wasAway_ = true;
    }
    PointerInteractable::disable();
    leaveIndex();
}

void PokeInteractable::enterIndex()
{
    getStaticIndex().enter(place_, findRegion());
    motion_ = SurfaceMotion(findPose());
    listenToPatch();
}

void PokeInteractable::leaveIndex()
{
    if (place_.isEntered()) {
        getStaticIndex().leave(place_);
        stopListening();
    }
}

void PokeInteractable::listenToPatch()
{
    stopListening();
    if (auto* source = search::findChangeSource(surfacePatch_.get())) {
        listenTo(*source);
    }
}

void PokeInteractable::surfaceChanged()
{
    if (!place_.isEntered()) {
        return;
    }
    if (!place_.isRestless() && !place_.isSilent()) {
        motion_.begin();
    }
    motion_.follow(findPose());
    getStaticIndex().change(place_, findRegion());
}

// Where the rules can let a finger begin to hover or press, less the finger's radius: see PokeHover.cpp and
// PokePress.cpp. What was found last stays by wider limits and is always looked at.
search::Region PokeInteractable::findRegion() const
{
    search::Region region =
        search::findRegionOfTouch(surfacePatch_.get(), config_.enterHoverNormal, config_.enterHoverTangent);
    const bool mayBeginBelow = config_.minThresholds.enabled && !(config_.minThresholds.minNormal >= 0.0f);
    const bool mayVeto = !(closeDistanceThreshold_ <= 0.0f);
    region.isOdd = region.isOdd || hasLiveConfig_ || mayBeginBelow || mayVeto;
    return region;
}

Posef PokeInteractable::findPose() const
{
    return surfacePatch_ != nullptr ? surfacePatch_->getBackingSurface().getPose() : motion_.getPose();
}

bool PokeInteractable::isSelective() const
{
    return wasAway_ || typeid(*this) != typeid(PokeInteractable);
}

InteractableRegistry<PokeInteractor, PokeInteractable>& PokeInteractable::getRegistry()
{
    return getStaticRegistry();
}

PokeInteractable* PokeInteractable::getInteractablePtr()
{
    return this;
}

InteractableRegistry<PokeInteractor, PokeInteractable>& PokeInteractable::getStaticRegistry()
{
    static common::NeverDestroyed<InteractableRegistry<PokeInteractor, PokeInteractable>> registry;
    return *registry;
}

search::SurfaceIndex& PokeInteractable::getStaticIndex()
{
    static common::NeverDestroyed<search::SurfaceIndex> index([](const IInteractable& interactable) {
        return !static_cast<const PokeInteractable&>(interactable).isSelective();
    });
    return *index;
}

PokeInteractable::Config& PokeInteractable::getConfig()
{
    hasLiveConfig_ = true;
    surfaceChanged();
    return config_;
}

void PokeInteractable::setCloseDistanceThreshold(float threshold)
{
    closeDistanceThreshold_ = threshold;
    surfaceChanged();
}

// Without a patch there is no hit: a finger that was on it can still let go, and so it can be destroyed.
bool PokeInteractable::closestSurfacePatchHit(const Vector3f& point, surface::SurfaceHit& hit) const
{
    return surfacePatch_ != nullptr && surfacePatch_->closestSurfacePoint(point, hit, 0.0f);
}

bool PokeInteractable::closestBackingSurfaceHit(const Vector3f& point, surface::SurfaceHit& hit) const
{
    return surfacePatch_ != nullptr &&
           surfacePatch_->getBackingSurface().closestSurfacePoint(point, hit, 0.0f);
}

void PokeInteractable::setSurfacePatch(std::shared_ptr<surface::ISurfacePatch> surfacePatch)
{
    surfacePatch_ = std::move(surfacePatch);
    listenToPatch();
    surfaceChanged();
}

} // namespace velk::interaction
