// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkPokeInteractor.h"

#include "math/Aliases.h"
#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_core/interaction/poke/PokeInteractor.h"

#include <memory>

namespace velk::capi::poke_interactor
{

using interaction::PokeInteractor;

static_assert(sizeof(velk_PokeInteractorConfig) == 16);

namespace
{

PokeInteractor::Config readConfig(const velk_PokeInteractorConfig* record)
{
    if (record == nullptr) {
        return {};
    }
    return {record->surfaceReleaseThreshold, record->reservedDistance, record->equalDistanceEpsilon,
            record->radius};
}

} // namespace

VelkInteractorHandle create(const velk_PokeInteractorConfig* config)
{
    return interactor::getRegistry().insert(std::make_shared<PokeInteractor>(readConfig(config)));
}

int32_t setPointTransform(VelkInteractorHandle interactor, const talpPosef* pose)
{
    // Read before the handle is looked at, so the pose must be valid in any case.
    const Posef pointTransform = SpaceConversions::talpToTal(*pose);
    auto* target = getRawPointerAs<PokeInteractor>(interactor::getRegistry(), interactor);
    if (target == nullptr) {
        return kFailure;
    }
    target->setPointTransform(pointTransform);
    return kSuccess;
}

} // namespace velk::capi::poke_interactor
