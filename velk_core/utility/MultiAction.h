// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/utility/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace velk::utility
{

/// A multicast list of callbacks. Subscribers are called in the order of subscription.
///
/// `invoke` works on a copy of the list, which is the one guard against re-entrancy: a callback removed
/// during a pass is still called in that pass, one added is first called in the next. Owns its callbacks and
/// knows nothing of its subscribers. Host thread only.
template <typename... Args>
class MultiAction
{
public:
    using Handler = std::function<void(Args...)>;

    using HandlerToken = Subscription;

    /// Tokens rise from 1 and are not reused.
    uint32_t subscribe(Handler&& handler)
    {
        const uint32_t token = nextToken_++;
        handlers_.emplace(token, std::move(handler));
        return token;
    }

    /// An unknown token is ignored.
    void unsubscribe(uint32_t token) { handlers_.erase(token); }

    HandlerToken registerHandler(Handler&& handler)
    {
        return HandlerToken(*this, subscribe(std::move(handler)));
    }

    void invoke(Args... args)
    {
        // The common case of a frame: nobody listens, nothing is copied.
        if (handlers_.empty()) {
            return;
        }
        const std::map<uint32_t, Handler> snapshot = handlers_;
        for (const auto& [token, handler] : snapshot) {
            handler(args...);
        }
    }

private:
    std::map<uint32_t, Handler> handlers_;
    uint32_t nextToken_ = 1;
};

} // namespace velk::utility
