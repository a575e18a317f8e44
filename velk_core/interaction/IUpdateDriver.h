// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::interaction
{

class IUpdateDriver
{
public:
    /// Whether an update drives this object itself.
    virtual bool getIsRootDriver() = 0;
    virtual void setIsRootDriver(bool isRootDriver) = 0;
    virtual void drive() = 0;

    virtual ~IUpdateDriver() = default;
};

} // namespace velk::interaction
