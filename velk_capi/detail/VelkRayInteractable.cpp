// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkRayInteractable.h"

#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkPointableSurface.h"
#include "velk_core/interaction/ray/RayInteractable.h"

#include <memory>
#include <utility>

namespace velk::capi::ray_interactable
{

using interaction::RayInteractable;

VelkInteractableHandle create(VelkPointableSurfaceHandle surface)
{
    auto shared = pointable_surface::getPtr(surface);
    if (!shared) {
        return VelkInteractableHandle_Invalid;
    }
    return interactable::insert(std::make_shared<RayInteractable>(std::move(shared)));
}

int32_t setSurface(VelkInteractableHandle interactable, VelkPointableSurfaceHandle surface)
{
    auto* target = interactable::getRawPtr<RayInteractable>(interactable);
    if (target == nullptr) {
        return kFailure;
    }
    // The surface is not tested: an unknown handle leaves the interactable without one.
    target->setSurface(pointable_surface::getPtr(surface));
    return kSuccess;
}

} // namespace velk::capi::ray_interactable
