// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkRayInteractor.h"

#include "math/Aliases.h"
#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_capi/detail/SpaceConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_core/interaction/ray/RayInteractor.h"

namespace velk::capi::ray_interactor
{

using interaction::RayInteractor;

namespace
{

RayInteractor* find(VelkInteractorHandle handle)
{
    return getRawPointerAs<RayInteractor>(interactor::getRegistry(), handle);
}

} // namespace

VelkInteractorHandle create()
{
    return interactor::getRegistry().create<RayInteractor>();
}

int32_t setMaxRayLength(VelkInteractorHandle interactor, float length)
{
    RayInteractor* ray = find(interactor);
    if (ray == nullptr) {
        return kFailure;
    }
    ray->setMaxRayLength(SpaceConversions::talpToTal(length));
    return kSuccess;
}

int32_t setPose(VelkInteractorHandle interactor, const talpPosef* pose)
{
    // Read before the handle is looked at, so the pose must be valid in any case.
    const Posef rayOrigin = SpaceConversions::talpToTal(*pose);
    RayInteractor* ray = find(interactor);
    if (ray == nullptr) {
        return kFailure;
    }
    ray->setRayOrigin(rayOrigin);
    return kSuccess;
}

int32_t getOrigin(VelkInteractorHandle interactor, talpVector3f* origin)
{
    const RayInteractor* ray = find(interactor);
    if (ray == nullptr) {
        return kFailure;
    }
    *origin = SpaceConversions::talToTalp(ray->getOrigin());
    return kSuccess;
}

int32_t getEnd(VelkInteractorHandle interactor, talpVector3f* end)
{
    const RayInteractor* ray = find(interactor);
    if (ray == nullptr) {
        return kFailure;
    }
    *end = SpaceConversions::talToTalp(ray->getEnd());
    return kSuccess;
}

} // namespace velk::capi::ray_interactor
