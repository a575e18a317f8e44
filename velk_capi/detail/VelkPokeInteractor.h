// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::poke_interactor
{

/// A null config stands for the defaults.
VelkInteractorHandle create(const velk_PokeInteractorConfig* config = nullptr);
int32_t setPointTransform(VelkInteractorHandle interactor, const talpPosef* pose);

} // namespace velk::capi::poke_interactor
