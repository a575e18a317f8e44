// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace velk::utility
{

/// Stands for "no subscription" wherever a token is remembered.
inline constexpr uint32_t kNoToken = 0xFFFFFFFFu;

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

    /// A subscription that ends with its scope. Must not outlive its MultiAction unless it was released.
    class HandlerToken
    {
    public:
        HandlerToken(MultiAction& action, uint32_t token)
            : action_(action)
            , token_(token)
        {
        }
        HandlerToken(const HandlerToken&) = delete;
        HandlerToken& operator=(const HandlerToken&) = delete;

        ~HandlerToken() // implicitly noexcept: nothing may pass
        {
            if (token_ < kNoToken) {
                action_.unsubscribe(token_);
            }
        }

        /// Forgets the subscription without touching the MultiAction, for when that has gone first.
        void release() { token_ = kNoToken; }

    private:
        MultiAction& action_;
        uint32_t token_;
    };

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
