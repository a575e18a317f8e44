// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace velk::interaction
{

enum class InteractableState : int32_t
{
    Normal = 0,   ///< enabled, nobody on it
    Hover = 1,    ///< at least one interactor hovers, none selects
    Select = 2,   ///< at least one interactor selects
    Disabled = 3, ///< not registered; the initial state
};

struct InteractableStateChangeArgs
{
    InteractableState previousState;
    InteractableState newState;
};

} // namespace velk::interaction
