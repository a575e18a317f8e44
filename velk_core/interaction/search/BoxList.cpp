// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/BoxList.h"

namespace velk::interaction::search
{

void BoxList::reserve(std::size_t count)
{
    if (count > places_.capacity()) {
        const std::size_t room = std::bit_ceil(count);
        blocks_.reserve((room + BoxBlock::kSize - 1) / BoxBlock::kSize);
        places_.reserve(room);
    }
}

void BoxList::insert(Place& place)
{
    if (places_.size() % BoxBlock::kSize == 0) {
        blocks_.emplace_back();
    }
    place.position_ = static_cast<uint32_t>(places_.size());
    place.where_ = Place::Where::List;
    places_.push_back(&place);
    update(place);
}

void BoxList::update(const Place& place)
{
    blockOf(place.position_).set(laneOf(place.position_), place.region_.box);
}

// The last one takes its place.
void BoxList::erase(Place& place)
{
    Place& last = *places_.back();
    last.position_ = place.position_;
    places_[place.position_] = &last;
    update(last);
    places_.pop_back();
    if (places_.size() % BoxBlock::kSize == 0) {
        blocks_.pop_back();
    }
    place.where_ = Place::Where::Nowhere;
}

} // namespace velk::interaction::search
