// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/filters/IFilterableObject.h"

namespace velk::interaction::filters
{

/// Decides whether two objects may meet. The library brings no filter of its own: subclasses of interactors
/// and interactables add theirs.
class IObjectFilter
{
public:
    virtual bool filter(IFilterableObject* object) = 0;

    virtual ~IObjectFilter() = default;
};

} // namespace velk::interaction::filters
