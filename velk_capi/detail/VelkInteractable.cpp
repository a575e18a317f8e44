// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkInteractable.h"

#include "velk_capi/detail/PayloadAccess.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"

#include <cstdint>
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
        internal::getReverseLookUpRegistry().emplace(pointer, handle);
    });
}

std::shared_ptr<interaction::IInteractable> getPtr(VelkInteractableHandle interactable)
{
    return internal::getRegistry().get(interactable);
}

VelkInteractableHandle getHandle(const interaction::IInteractable* object)
{
    return internal::getReverseLookUpRegistry().at(object);
}

int32_t destroy(VelkInteractableHandle interactable)
{
    internal::ReverseLookUpRegistry& handles = internal::getReverseLookUpRegistry();
    handles.erase(internal::getRegistry().getRawPointer(interactable));
    if (handles.empty()) {
        internal::ReverseLookUpRegistry().swap(handles); // gives the buckets back, see NeverDestroyed
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
