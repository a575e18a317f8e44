// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

namespace velk::utility
{

/// Stands for "no subscription" wherever a token is remembered.
inline constexpr uint32_t kNoToken = 0xFFFFFFFFu;

/// A subscription that ends with its scope. It must not outlive what it is with, unless it was released or is
/// guarded by the owner's lifetime. Nothing here allocates, so it may be ended in destructors.
class Subscription
{
public:
    Subscription() = default;

    /// Ends with `action.unsubscribe(token)`.
    template <typename Action>
    Subscription(Action& action, uint32_t token)
        : Subscription(&action, &unsubscribeBy<&Action::unsubscribe, Action>, token)
    {
    }

    /// Ends with the `unsubscribe` of an owner that outlives the subscription.
    template <auto unsubscribe, typename Owner>
    static Subscription with(Owner& owner, uint32_t token)
    {
        return Subscription(&owner, &unsubscribeBy<unsubscribe, Owner>, token);
    }

    /// The same with an owner that may go first.
    template <auto unsubscribe, typename Owner>
    static Subscription with(const std::shared_ptr<Owner>& owner, uint32_t token)
    {
        return with<unsubscribe>(*owner, token).guardedBy(owner);
    }

    Subscription(Subscription&& other) noexcept
        : owner_(other.owner_)
        , unsubscribe_(other.unsubscribe_)
        , guard_(std::move(other.guard_))
        , token_(std::exchange(other.token_, kNoToken))
        , isGuarded_(other.isGuarded_)
    {
    }
    Subscription& operator=(Subscription&& other) noexcept
    {
        Subscription taken(std::move(other));
        std::swap(owner_, taken.owner_);
        std::swap(unsubscribe_, taken.unsubscribe_);
        std::swap(guard_, taken.guard_);
        std::swap(token_, taken.token_);
        std::swap(isGuarded_, taken.isGuarded_);
        return *this;
    }
    ~Subscription() { end(); }

    /// From now on there is nothing to end once `owner` has gone.
    Subscription guardedBy(std::weak_ptr<const void> owner) &&
    {
        guard_ = std::move(owner);
        isGuarded_ = true;
        return std::move(*this);
    }

    /// Ends it now; the second time nothing happens.
    void end() noexcept
    {
        const uint32_t token = std::exchange(token_, kNoToken);
        if (token == kNoToken) {
            return;
        }
        const std::shared_ptr<const void> alive = guard_.lock();
        if (!isGuarded_ || alive != nullptr) {
            unsubscribe_(owner_, token);
        }
    }

    /// Forgets it without ending it, for when the other side has gone first. Returns its token.
    uint32_t release() { return std::exchange(token_, kNoToken); }

    bool isHeld() const { return token_ != kNoToken; }
    bool isExpired() const { return isGuarded_ && guard_.expired(); }
    bool isWith(const void* owner) const { return isHeld() && !isExpired() && owner_ == owner; }

private:
    using Unsubscribe = void (*)(void* owner, uint32_t token);

    template <auto unsubscribe, typename Owner>
    static void unsubscribeBy(void* owner, uint32_t token)
    {
        (static_cast<Owner*>(owner)->*unsubscribe)(token);
    }

    Subscription(void* owner, Unsubscribe unsubscribe, uint32_t token)
        : owner_(owner)
        , unsubscribe_(unsubscribe)
        , token_(token)
    {
    }

    void* owner_ = nullptr;
    Unsubscribe unsubscribe_ = nullptr;
    std::weak_ptr<const void> guard_;
    uint32_t token_ = kNoToken;
    bool isGuarded_ = false;
};

} // namespace velk::utility
