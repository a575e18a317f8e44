// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/InteractableKinds.h"

#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/interaction/ray/RayInteractable.h"
#include "velk_core/interaction/ray/RayInteractor.h"

namespace velk::capi
{

void constructKindRegistriesFirst()
{
    static_cast<void>(interaction::PokeInteractable::getStaticRegistry());
    static_cast<void>(interaction::RayInteractable::getStaticRegistry());
}

} // namespace velk::capi
