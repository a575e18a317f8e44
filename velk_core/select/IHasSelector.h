// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/select/ISelector.h"

#include <memory>

namespace velk::select
{

/// An object that takes a selector, and keeps it alive while it has it.
class IHasSelector
{
public:
    virtual ~IHasSelector() = default;

    virtual std::shared_ptr<ISelector> getSelector() = 0;
    virtual void setSelector(std::shared_ptr<ISelector>&& selector) = 0;
};

} // namespace velk::select
