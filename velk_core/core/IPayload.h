// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::core
{

/// The base of anything that an interactor or interactable carries for somebody else.
class IPayload
{
public:
    virtual ~IPayload() = default;
};

} // namespace velk::core
