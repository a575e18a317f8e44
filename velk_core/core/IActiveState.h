// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::active_state
{

/// A condition that others can be made to depend on.
class IActiveState
{
public:
    virtual ~IActiveState() = default;

    virtual bool isActive() const = 0;
};

} // namespace velk::active_state
