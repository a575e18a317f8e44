// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/ICandidateProperty.h"

namespace velk::interaction
{

class ICandidatePosition : public ICandidateProperty
{
public:
    /// Where the candidate was met, in world space.
    virtual Vector3f getCandidatePosition() = 0;
};

} // namespace velk::interaction
