// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::core
{

/// Something that advances by one frame when its host says so.
class IUpdate
{
public:
    virtual ~IUpdate() = default;

    virtual void update() = 0;
};

} // namespace velk::core
