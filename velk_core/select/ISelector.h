// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>

namespace velk::select
{

/// Tells that the user presses or releases; interactors subscribe.
class ISelector
{
public:
    virtual ~ISelector() = default;

    virtual uint32_t subscribeToWhenSelected(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenSelected(uint32_t token) = 0;
    virtual uint32_t subscribeToWhenUnselected(std::function<void()>&& handler) = 0;
    virtual void unsubscribeToWhenUnselected(uint32_t token) = 0;
};

} // namespace velk::select
