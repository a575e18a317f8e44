// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/select/ISelector.h"
#include "velk_core/utility/Subscription.h"

#include <functional>
#include <memory>
#include <vector>

namespace velk::select
{

/// What a selector has said since the last update, in order: true for a press, false for a release. The
/// handlers are called while the selector speaks, and push what is to be queued.
class SelectorQueue
{
public:
    SelectorQueue(std::function<void()> handleSelected, std::function<void()> handleUnselected);
    SelectorQueue(const SelectorQueue&) = delete;
    SelectorQueue& operator=(const SelectorQueue&) = delete;

    const std::shared_ptr<ISelector>& getSelector() const { return selector_; }

    /// Listens to this selector instead of the former one; the same one again changes nothing.
    void setSelector(std::shared_ptr<ISelector>&& selector);

    /// Drops what is queued and listens to the selector once more, so that each press is pushed twice. This
    /// listening ends with this object alone.
    void subscribeAgain();

    /// Ends what setSelector() began; the selector stays.
    void unsubscribe();

    void push(bool selected) { commands_.push_back(selected); }

    /// Whether this is the command to be used next.
    bool isNext(bool selected) const { return !commands_.empty() && commands_.front() == selected; }

    /// Uses up all such commands at the front as one.
    void take(bool selected);

    void clear() { commands_.clear(); }

private:
    struct Subscriptions
    {
        utility::Subscription selected;
        utility::Subscription unselected;
    };

    Subscriptions subscribe(const std::shared_ptr<ISelector>& selector) const;

    std::function<void()> handleSelected_;
    std::function<void()> handleUnselected_;
    std::shared_ptr<ISelector> selector_;
    std::vector<bool> commands_;
    Subscriptions stored_;
    std::vector<Subscriptions> again_;
};

} // namespace velk::select
