// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkInteractor.h"

#include "velk_capi/detail/PayloadAccess.h"
#include "velk_capi/detail/Status.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkSelector.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_core/select/IHasSelector.h"

#include <cstdint>

namespace velk::capi::interactor
{

ObjectRegistry<interaction::IInteractor, VelkInteractorHandle>& getRegistry()
{
    static velk::common::NeverDestroyed<ObjectRegistry<interaction::IInteractor, VelkInteractorHandle>>
        registry;
    return *registry;
}

int32_t destroy(VelkInteractorHandle interactor)
{
    return getRegistry().destroy(interactor);
}

int32_t update(VelkInteractorHandle interactor)
{
    interaction::IInteractor* const target = getRegistry().getRawPointer(interactor);
    if (target == nullptr) {
        return kFailure;
    }
    target->update();
    return kSuccess;
}

int32_t setSelector(VelkInteractorHandle interactor, VelkSelectorHandle selector)
{
    auto* const target = getRawPointerAs<select::IHasSelector>(getRegistry(), interactor);
    if (target == nullptr) {
        return kFailure;
    }
    // The selector is not tested: an unknown handle takes the interactor's selector off.
    target->setSelector(selector::getRegistry().get(selector));
    return kSuccess;
}

int32_t getState(VelkInteractorHandle interactor, VelkInteractorState* state)
{
    const interaction::IInteractor* const target = getRegistry().getRawPointer(interactor);
    if (target == nullptr) {
        return kFailure;
    }
    *state = static_cast<VelkInteractorState>(target->getState());
    return kSuccess;
}

VelkInteractableHandle getInteractable(VelkInteractorHandle interactor)
{
    const interaction::IInteractor* const target = getRegistry().getRawPointer(interactor);
    if (target == nullptr) {
        return VelkInteractableHandle_Invalid;
    }
    const interaction::IInteractable* const hovered = target->getInteractablePtr();
    if (hovered == nullptr) {
        return VelkInteractableHandle_Invalid;
    }
    return interactable::getHandle(hovered);
}

int32_t getPayload(VelkInteractorHandle interactor, VelkPayload** payload)
{
    return getPayloadOf(getRegistry().getRawPointer(interactor), payload);
}

int32_t setPayload(VelkInteractorHandle interactor, VelkPayload* payload)
{
    return setPayloadOf(getRegistry().getRawPointer(interactor), payload);
}

} // namespace velk::capi::interactor
