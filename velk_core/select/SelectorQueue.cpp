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
    unsubscribe();
    // The former selector goes last, in case that this was its only owner.
    const std::shared_ptr<ISelector> former = std::exchange(selector_, std::move(selector));
    if (selector_ != nullptr) {
        stored_ = subscribe();
    }
}

void SelectorQueue::subscribeAgain()
{
    if (selector_ == nullptr) {
        return;
    }
    clear();
    again_.push_back(subscribe());
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

SelectorQueue::Subscriptions SelectorQueue::subscribe() const
{
    Subscriptions made;
    made.selected = Subscription::with<&ISelector::unsubscribeToWhenSelected>(
        selector_, selector_->subscribeToWhenSelected(std::function<void()>(handleSelected_)));
    made.unselected = Subscription::with<&ISelector::unsubscribeToWhenUnselected>(
        selector_, selector_->subscribeToWhenUnselected(std::function<void()>(handleUnselected_)));
    return made;
}

} // namespace velk::select
