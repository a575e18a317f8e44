// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPokeInteractable.h"

#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkSurfacePatch.h"
#include "velk_core/core/TimeProvider.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/utility/ProgressCurve.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace velk::capi::poke_interactable
{

using interaction::PokeInteractable;

static_assert(sizeof(velk_PokeInteractableConfig) == 56);
static_assert(offsetof(velk_PokeInteractableConfig, positionPinningEnabled) == 24);
static_assert(offsetof(velk_PokeInteractableConfig, dragThresholdsEnabled) == 32);
static_assert(offsetof(velk_PokeInteractableConfig, dragEaseDuration) == 44);
static_assert(offsetof(velk_PokeInteractableConfig, minThresholdsEnabled) == 48);
static_assert(offsetof(velk_PokeInteractableConfig, minNormal) == 52);

namespace
{

// Seconds; the duration of the default config's curve, which does not tell it.
constexpr float kDefaultDragEaseDuration = 0.05f;

// Only 1 means true.
bool isTrue(uint8_t value)
{
    return value == 1;
}

PokeInteractable::Config readConfig(const velk_PokeInteractableConfig* record)
{
    PokeInteractable::Config config;
    if (record == nullptr) {
        return config;
    }
    config.positionPinning = {isTrue(record->positionPinningEnabled), record->maxPinDistance};
    config.dragThresholds = {
        isTrue(record->dragThresholdsEnabled), record->dragNormal, record->dragTangent,
        utility::ProgressCurve(record->dragEaseDuration, core::TimeProvider::defaultTimeProvider())};
    config.minThresholds = {isTrue(record->minThresholdsEnabled), record->minNormal};
    config.enterHoverNormal = record->enterHoverNormal;
    config.enterHoverTangent = record->enterHoverTangent;
    config.exitHoverNormal = record->exitHoverNormal;
    config.exitHoverTangent = record->exitHoverTangent;
    config.cancelSelectNormal = record->cancelSelectNormal;
    config.cancelSelectTangent = record->cancelSelectTangent;
    return config;
}

velk_PokeInteractableConfig defaultRecord()
{
    const PokeInteractable::Config config;
    velk_PokeInteractableConfig record = {};
    record.enterHoverNormal = config.enterHoverNormal;
    record.enterHoverTangent = config.enterHoverTangent;
    record.exitHoverNormal = config.exitHoverNormal;
    record.exitHoverTangent = config.exitHoverTangent;
    record.cancelSelectNormal = config.cancelSelectNormal;
    record.cancelSelectTangent = config.cancelSelectTangent;
    record.positionPinningEnabled = config.positionPinning.enabled;
    record.maxPinDistance = config.positionPinning.maxPinDistance;
    record.dragThresholdsEnabled = config.dragThresholds.enabled;
    record.dragNormal = config.dragThresholds.dragNormal;
    record.dragTangent = config.dragThresholds.dragTangent;
    record.dragEaseDuration = kDefaultDragEaseDuration;
    record.minThresholdsEnabled = config.minThresholds.enabled;
    record.minNormal = config.minThresholds.minNormal;
    return record;
}

} // namespace

VelkInteractableHandle create(VelkSurfacePatchHandle surfacePatch)
{
    return createWithConfig(surfacePatch, nullptr);
}

VelkInteractableHandle createWithConfig(VelkSurfacePatchHandle surfacePatch,
                                        const velk_PokeInteractableConfig* config)
{
    auto patch = surface_patch::getPtr(surfacePatch);
    if (patch == nullptr) {
        return VelkInteractableHandle_Invalid;
    }
    return interactable::insert(
        std::make_shared<PokeInteractable>(readConfig(config), std::move(patch), nullptr));
}

int32_t getDefaultConfig(velk_PokeInteractableConfig* config)
{
    if (config == nullptr) {
        return kFailure;
    }
    *config = defaultRecord();
    return kSuccess;
}

int32_t setSurface(VelkInteractableHandle interactable, VelkSurfacePatchHandle surfacePatch)
{
    auto* target = interactable::getRawPtr<PokeInteractable>(interactable);
    if (target == nullptr) {
        return kFailure;
    }
    // The patch is not tested: an unknown handle leaves the interactable without one.
    target->setSurfacePatch(surface_patch::getPtr(surfacePatch));
    return kSuccess;
}

} // namespace velk::capi::poke_interactable
