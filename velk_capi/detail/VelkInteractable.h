// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/FlatTable.h"
#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/IInteractable.h"

#include <velk/velk.h>

#include <cstdint>
#include <memory>

namespace velk::capi::interactable
{

namespace internal
{

using Registry = ObjectRegistry<interaction::IInteractable, VelkInteractableHandle>;
using ReverseLookUpRegistry = FlatTable<const interaction::IInteractable*, VelkInteractableHandle>;

Registry& getRegistry();

/// From an interactable back to its handle: every pointer in the registry has exactly one entry here.
ReverseLookUpRegistry& getReverseLookUpRegistry();

} // namespace internal

/// Enters the interactable into both tables; nothing else does.
VelkInteractableHandle insert(std::shared_ptr<interaction::IInteractable> object);
std::shared_ptr<interaction::IInteractable> getPtr(VelkInteractableHandle interactable);

/// Null for an unknown handle and for one of another concrete kind.
template <typename U>
U* getRawPtr(VelkInteractableHandle interactable)
{
    return getRawPointerAs<U>(internal::getRegistry(), interactable);
}

/// Throws std::out_of_range for an interactable that has no handle.
VelkInteractableHandle getHandle(const interaction::IInteractable* object);

int32_t destroy(VelkInteractableHandle interactable);
int32_t getState(VelkInteractableHandle interactable, VelkInteractableState* state);
int32_t getPayload(VelkInteractableHandle interactable, VelkPayload** payload);
int32_t setPayload(VelkInteractableHandle interactable, VelkPayload* payload);

} // namespace velk::capi::interactable
