// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::core
{

class IEnable
{
public:
    virtual ~IEnable() = default;

    virtual void onEnable() = 0;
    virtual void onDisable() = 0;
};

} // namespace velk::core
