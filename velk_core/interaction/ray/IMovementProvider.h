// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/ray/IMovement.h"

#include <memory>

namespace velk::movement
{

/// Makes the movement of an interactable that can be dragged, one for each selection.
class IMovementProvider
{
public:
    virtual ~IMovementProvider() = default;

    virtual std::unique_ptr<IMovement> createMovement(const Posef& from, const Posef& to) = 0;
};

} // namespace velk::movement
