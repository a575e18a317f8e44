// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPokeButtonVisual.h"

#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_common/NeverDestroyed.h"

#include <memory>

namespace velk::capi::poke_button_visual
{

using interaction::PokeButtonVisual;
using interaction::PokeInteractable;

Registry& getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

VelkPokeButtonVisualHandle create(VelkInteractableHandle interactable, const talpPosef* basePose,
                                  float maxExtent)
{
    const auto poke = std::dynamic_pointer_cast<PokeInteractable>(interactable::getPtr(interactable));
    if (poke == nullptr || basePose == nullptr || 0.0f > maxExtent) {
        return VelkPokeButtonVisualHandle_Invalid;
    }
    return getRegistry().insert(std::make_shared<PokeButtonVisual>(
        poke, SpaceConversions::talpToTal(*basePose), SpaceConversions::talpToTal(maxExtent)));
}

int32_t destroy(VelkPokeButtonVisualHandle visual)
{
    return getRegistry().destroy(visual);
}

int32_t updateBasePose(VelkPokeButtonVisualHandle visual, const talpPosef* basePose, float maxExtent)
{
    PokeButtonVisual* target = getRegistry().getRawPointer(visual);
    if (target == nullptr || basePose == nullptr) {
        return kFailure;
    }
    target->updateBasePose(SpaceConversions::talpToTal(*basePose), SpaceConversions::talpToTal(maxExtent));
    return kSuccess;
}

int32_t getCurrentExtent(VelkPokeButtonVisualHandle visual, float* extent)
{
    const PokeButtonVisual* target = getRegistry().getRawPointer(visual);
    if (target == nullptr || extent == nullptr) {
        return kFailure;
    }
    *extent = SpaceConversions::talToTalp(target->getCurrentExtent());
    return kSuccess;
}

int32_t getCurrentPose(VelkPokeButtonVisualHandle visual, talpPosef* pose)
{
    const PokeButtonVisual* target = getRegistry().getRawPointer(visual);
    if (target == nullptr || pose == nullptr) {
        return kFailure;
    }
    *pose = SpaceConversions::talToTalp(target->getCurrentPose());
    return kSuccess;
}

} // namespace velk::capi::poke_button_visual
