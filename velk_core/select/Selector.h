// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/select/ISelector.h"
#include "velk_core/utility/MultiAction.h"

#include <utility>

namespace velk::select
{

/// The selector that a host drives. It holds no state: `select` and `unselect` call every subscriber before
/// they return, and each interactor only queues the command for its next update.
class Selector : public ISelector
{
public:
    uint32_t subscribeToWhenSelected(std::function<void()>&& handler) override
    {
        return whenSelected_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenSelected(uint32_t token) override { whenSelected_.unsubscribe(token); }
    uint32_t subscribeToWhenUnselected(std::function<void()>&& handler) override
    {
        return whenUnselected_.subscribe(std::move(handler));
    }
    void unsubscribeToWhenUnselected(uint32_t token) override { whenUnselected_.unsubscribe(token); }

    void select() { whenSelected_.invoke(); }
    void unselect() { whenUnselected_.invoke(); }

private:
    utility::MultiAction<> whenSelected_;
    utility::MultiAction<> whenUnselected_;
};

} // namespace velk::select
