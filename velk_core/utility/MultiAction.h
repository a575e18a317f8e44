// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/utility/Subscription.h"

#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

namespace velk::utility
{

/// A multicast list of callbacks. Subscribers are called in the order of subscription.
///
/// A pass of `invoke` calls those who were subscribed when it began: a callback removed during a pass is
/// still called in that pass, one added is first called in the next. A callback may destroy the list itself.
/// Owns its callbacks and knows nothing of its subscribers. Only `subscribe` allocates. Host thread only.
template <typename... Args>
class MultiAction
{
public:
    using Handler = std::function<void(Args...)>;

    using HandlerToken = Subscription;

    MultiAction() = default;
    MultiAction(const MultiAction&) = delete;
    MultiAction& operator=(const MultiAction&) = delete;

    ~MultiAction()
    {
        if (innermost_ != nullptr) {
            innermost_->keep(std::move(handlers_));
        }
    }

    /// Tokens rise from 1 and are not reused.
    uint32_t subscribe(Handler&& handler)
    {
        handlers_.emplace(nextToken_, Entry{std::move(handler)});
        return nextToken_++;
    }

    /// An unknown token is ignored.
    void unsubscribe(uint32_t token)
    {
        const auto found = handlers_.find(token);
        if (found == handlers_.end()) {
            return;
        }
        if (innermost_ == nullptr) {
            handlers_.extract(found); // out of the list before the callback's own destructor runs
        } else if (found->second.removal == kNotRemoved) {
            found->second.removal = ++lastRemoval_;
        }
    }

    HandlerToken registerHandler(Handler&& handler)
    {
        return HandlerToken(*this, subscribe(std::move(handler)));
    }

    /// Unsubscribes a callback, whose token must be live, from `former` and subscribes it here. Allocates
    /// only while `former` is in a pass. Returns the new token.
    uint32_t takeOver(MultiAction& former, uint32_t token)
    {
        if (former.innermost_ != nullptr) {
            const uint32_t copied = subscribe(Handler(former.handlers_.at(token).handler));
            former.unsubscribe(token);
            return copied;
        }
        auto node = former.handlers_.extract(token);
        node.key() = nextToken_;
        handlers_.insert(handlers_.end(), std::move(node));
        return nextToken_++;
    }

    bool hasHandlers() const { return !handlers_.empty(); }

    void invoke(Args... args)
    {
        // The common case of a frame: nobody listens.
        if (handlers_.empty()) {
            return;
        }
        Pass pass(*this);
        for (auto each = handlers_.begin(); pass.has(each); ++each) {
            if (each->second.removal > pass.lastRemovalBefore) {
                each->second.handler(args...);
            }
        }
    }

private:
    static constexpr uint64_t kNotRemoved = std::numeric_limits<uint64_t>::max();

    struct Entry
    {
        Handler handler;
        uint64_t removal = kNotRemoved; // counts the removals during passes
    };
    using Handlers = std::map<uint32_t, Entry>;

    /// One run of `invoke`. Those removed meanwhile stay in the list until the outermost pass ends.
    struct Pass
    {
        explicit Pass(MultiAction& inAction)
            : action(&inAction)
            , handlers(&inAction.handlers_)
            , outer(inAction.innermost_)
            , endToken(inAction.nextToken_)
            , lastRemovalBefore(inAction.lastRemoval_)
        {
// g++ can't see that a list which keeps this address is itself gone when the destructor leaves it there.
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
            inAction.innermost_ = this;
#if defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif
        }
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;
        ~Pass()
        {
            if (action == nullptr) {
                return;
            }
            action->innermost_ = outer;
            if (outer == nullptr && lastRemovalBefore != action->lastRemoval_) {
                action->dropRemoved();
            }
        }

        bool has(typename Handlers::iterator each) const
        {
            return each != handlers->end() && each->first < endToken;
        }

        /// The list is being destroyed by a callback: the outermost pass takes over what all still call.
        void keep(Handlers&& left)
        {
            Pass* outermost = this;
            while (outermost->outer != nullptr) {
                outermost = outermost->outer;
            }
            outermost->kept = std::move(left);
            for (Pass* pass = this; pass != nullptr; pass = pass->outer) {
                pass->action = nullptr;
                pass->handlers = &outermost->kept;
            }
        }

        MultiAction* action;
        Handlers* handlers;
        Pass* outer;
        uint32_t endToken;
        uint64_t lastRemovalBefore;
        Handlers kept;
    };

    void dropRemoved()
    {
        Handlers removed; // destroyed last, as the callbacks' own destructors may come back here
        for (auto each = handlers_.begin(); each != handlers_.end();) {
            const auto next = std::next(each);
            if (each->second.removal != kNotRemoved) {
                removed.insert(removed.end(), handlers_.extract(each));
            }
            each = next;
        }
    }

    Handlers handlers_;
    uint32_t nextToken_ = 1;
    uint64_t lastRemoval_ = 0;
    Pass* innermost_ = nullptr;
};

} // namespace velk::utility
