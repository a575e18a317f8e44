// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::interaction::filters
{

/// Data that a filter keeps with an object; opaque to the library.
class IFilterPayload
{
public:
    virtual ~IFilterPayload() = default;
};

} // namespace velk::interaction::filters
