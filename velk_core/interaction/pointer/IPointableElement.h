// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/pointer/IPointable.h"

namespace velk::interaction
{

/// Receives the pointer events of an interactable and may raise its own: a Cancel with an interactor's
/// identifier makes that interactor drop the interactable.
class IPointableElement : public IPointable
{
public:
    virtual void processPointerEvent(const PointerEvent& event) = 0;
};

} // namespace velk::interaction
