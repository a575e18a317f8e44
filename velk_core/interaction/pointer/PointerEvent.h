// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

#include <cstdint>

namespace velk::interaction
{

enum class PointerEventType : int32_t
{
    Hover = 0,    ///< an interactable was set on the interactor
    Unhover = 1,  ///< the interactable is being unset
    Select = 2,   ///< the interactable was selected
    Unselect = 3, ///< the interactable is being unselected
    Move = 4,     ///< once per update, at its end, while an interactable is set
    Cancel = 5,   ///< the interactor gives the interaction up
};

/// What a pointer does on an interactable, and where.
struct PointerEvent
{
    PointerEvent(int eventIdentifier, PointerEventType eventType, const Posef& eventPose)
        : identifier(eventIdentifier)
        , type(eventType)
        , pose(eventPose)
    {
    }

    int identifier; ///< of the interactor
    PointerEventType type;
    Posef pose; ///< in world space; the identity when the pointer meets nothing
};

} // namespace velk::interaction
