// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/select/SelectorQueue.h"

#include <algorithm>
#include <utility>

namespace velk::select
{

using utility::Subscription;

SelectorQueue::SelectorQueue(std::function<void()> handleSelected, std::function<void()> handleUnselected)
    : handleSelected_(std::move(handleSelected))
    , handleUnselected_(std::move(handleUnselected))
{
}

void SelectorQueue::setSelector(std::shared_ptr<ISelector>&& selector)
{
    if (selector == selector_) {
        return;
    }
    // The new subscriptions are the one step that can fail, so they come before any change.
    stored_ = selector != nullptr ? subscribe(selector) : Subscriptions();
    selector_ = std::move(selector);
}

void SelectorQueue::subscribeAgain()
{
    if (selector_ == nullptr) {
        return;
    }
    clear();
    again_.push_back(subscribe(selector_));
}

void SelectorQueue::unsubscribe()
{
    stored_.selected.end();
    stored_.unselected.end();
}

void SelectorQueue::take(bool selected)
{
    commands_.erase(commands_.begin(), std::find(commands_.begin(), commands_.end(), !selected));
}

SelectorQueue::Subscriptions SelectorQueue::subscribe(const std::shared_ptr<ISelector>& selector) const
{
    Subscriptions made;
    made.selected = Subscription::with<&ISelector::unsubscribeToWhenSelected>(
        selector, selector->subscribeToWhenSelected(std::function<void()>(handleSelected_)));
    made.unselected = Subscription::with<&ISelector::unsubscribeToWhenUnselected>(
        selector, selector->subscribeToWhenUnselected(std::function<void()>(handleUnselected_)));
    return made;
}

} // namespace velk::select
