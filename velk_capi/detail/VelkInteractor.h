// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/interaction/IInteractor.h"

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::interactor
{

ObjectRegistry<interaction::IInteractor, VelkInteractorHandle>& getRegistry();

int32_t destroy(VelkInteractorHandle interactor);
int32_t update(VelkInteractorHandle interactor);
int32_t setSelector(VelkInteractorHandle interactor, VelkSelectorHandle selector);
int32_t getState(VelkInteractorHandle interactor, VelkInteractorState* state);
VelkInteractableHandle getInteractable(VelkInteractorHandle interactor);
int32_t getPayload(VelkInteractorHandle interactor, VelkPayload** payload);
int32_t setPayload(VelkInteractorHandle interactor, VelkPayload* payload);

} // namespace velk::capi::interactor
