// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace velk::interaction
{

enum class InteractorState : int32_t
{
    Normal = 0,   ///< no interactable; looking for a candidate
    Hover = 1,    ///< has an interactable, or is in the air on its way to select
    Select = 2,   ///< has selected
    Disabled = 3, ///< takes no part
};

struct InteractorStateChangeArgs
{
    InteractorState previousState;
    InteractorState newState;
};

} // namespace velk::interaction
