// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkInteractable.h"

#include "velk_capi/detail/PayloadAccess.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"

#include <cstdint>
#include <stdexcept>
#include <utility>

namespace velk::capi::interactable
{

namespace internal
{

Registry& getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

ReverseLookUpRegistry& getReverseLookUpRegistry()
{
    static velk::common::NeverDestroyed<ReverseLookUpRegistry> registry;
    return *registry;
}

} // namespace internal

VelkInteractableHandle insert(std::shared_ptr<interaction::IInteractable> object)
{
    const interaction::IInteractable* const pointer = object.get();
    return internal::getRegistry().insert(std::move(object), [pointer](VelkInteractableHandle handle) {
        internal::getReverseLookUpRegistry().insert(pointer, handle);
    });
}

std::shared_ptr<interaction::IInteractable> getPtr(VelkInteractableHandle interactable)
{
    return internal::getRegistry().get(interactable);
}

VelkInteractableHandle getHandle(const interaction::IInteractable* object)
{
    const VelkInteractableHandle* const handle = internal::getReverseLookUpRegistry().find(object);
    if (handle == nullptr) {
        throw std::out_of_range("an interactable without a handle");
    }
    return *handle;
}

int32_t destroy(VelkInteractableHandle interactable)
{
    const interaction::IInteractable* const object = internal::getRegistry().getRawPointer(interactable);
    if (internal::getReverseLookUpRegistry().find(object) != nullptr) {
        internal::getReverseLookUpRegistry().take(object);
    }
    return internal::getRegistry().destroy(interactable);
}

int32_t getState(VelkInteractableHandle interactable, VelkInteractableState* state)
{
    const interaction::IInteractable* const target = internal::getRegistry().getRawPointer(interactable);
    if (target == nullptr) {
        return kFailure;
    }
    *state = static_cast<VelkInteractableState>(target->getState());
    return kSuccess;
}

int32_t getPayload(VelkInteractableHandle interactable, VelkPayload** payload)
{
    return getPayloadOf(internal::getRegistry().getRawPointer(interactable), payload);
}

int32_t setPayload(VelkInteractableHandle interactable, VelkPayload* payload)
{
    return setPayloadOf(internal::getRegistry().getRawPointer(interactable), payload);
}

} // namespace velk::capi::interactable
