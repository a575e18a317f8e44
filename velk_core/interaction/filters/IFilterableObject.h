// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/filters/IFilterPayload.h"

#include <memory>
#include <typeindex>

namespace velk::interaction::filters
{

/// An interactor or interactable as a filter sees it.
class IFilterableObject
{
public:
    virtual ~IFilterableObject() = default;

    virtual void setFilterPayload(std::type_index type, std::shared_ptr<IFilterPayload> payload) = 0;
    virtual std::shared_ptr<IFilterPayload> getFilterPayload(std::type_index type) = 0;
};

} // namespace velk::interaction::filters
