// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeInteractable.h"

#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkAssert.h"
#include "velk_core/interaction/poke/PokeInteractor.h"

#include <algorithm>
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
    PointerInteractable::onDisable();
    getStaticRegistry().interactableDestroyed(this);
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
}

} // namespace velk::interaction
