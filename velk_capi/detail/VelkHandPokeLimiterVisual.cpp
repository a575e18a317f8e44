// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkHandPokeLimiterVisual.h"

#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkDataSource.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_core/interaction/poke/PokeInteractor.h"

#include <memory>

namespace velk::capi::hand_poke_limiter_visual
{

using interaction::HandPokeLimiterVisual;
using interaction::PokeInteractor;
using velk::data_source::SyntheticHand;

Registry& getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

VelkHandPokeLimiterVisualHandle create(VelkDataSourceHandle hand, VelkInteractorHandle interactor,
                                       VelkDataSourceHandle syntheticHand)
{
    const auto poke = std::dynamic_pointer_cast<PokeInteractor>(interactor::getRegistry().get(interactor));
    const auto synthetic =
        std::dynamic_pointer_cast<SyntheticHand>(data_source::getRegistry().get(syntheticHand));
    if (!poke || !synthetic) {
        return VelkHandPokeLimiterVisualHandle_Invalid;
    }
    // Empty for an unknown hand, with which the visual holds no wrist.
    const auto tracked = data_source::getRegistry().get(hand);
    return getRegistry().insert(std::make_shared<HandPokeLimiterVisual>(tracked, poke, synthetic));
}

int32_t destroy(VelkHandPokeLimiterVisualHandle visual)
{
    return getRegistry().destroy(visual);
}

int32_t update(VelkHandPokeLimiterVisualHandle visual)
{
    HandPokeLimiterVisual* found = getRegistry().getRawPointer(visual);
    if (found == nullptr) {
        return kFailure;
    }
    found->update();
    return kSuccess;
}

} // namespace velk::capi::hand_poke_limiter_visual
