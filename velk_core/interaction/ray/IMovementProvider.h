// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"
#include "velk_core/interaction/ray/IMovement.h"

#include <memory>

namespace velk::movement
{

/// Makes the movement of an interactable that can be dragged, one for each selection.
class IMovementProvider
{
public:
    virtual ~IMovementProvider() = default;

    virtual std::unique_ptr<IMovement> createMovement(const TAL::Pose<float>& from,
                                                      const TAL::Pose<float>& to) = 0;
};

} // namespace velk::movement
