// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/SurfaceIndex.h"

#include <algorithm>
#include <bit>

namespace velk::interaction::search
{

bool SurfaceIndex::scansAll_ = false;

void SurfaceIndex::enter(Place& place, const Region& region)
{
    // Any of them can come to lie in the list or among the odd ones, also while memory is short.
    list_.reserve(count_ + 1);
    if (always_.capacity() <= count_) {
        always_.reserve(std::bit_ceil(count_ + 1));
    }
    ++count_;
    place.entered_ = changes_ + 1;
    noteChange(place);
    put(place, region);
}

void SurfaceIndex::change(Place& place, const Region& region)
{
    noteChange(place);
    if (place.where_ == Place::Where::List && !region.isOdd) {
        boxCount_ = boxCount_ - place.region_.isBox + region.isBox;
        place.region_ = region;
        list_.update(place);
        return;
    }
    takeOut(place);
    put(place, region);
}

void SurfaceIndex::leave(Place& place)
{
    takeOut(place);
    forgetChange(place);
    if (--count_ == 0) {
        // Gives the buffers back, see NeverDestroyed.
        list_ = BoxList();
        tree_.clear();
        always_ = std::vector<Place*>();
    }
}

void SurfaceIndex::put(Place& place, const Region& region)
{
    place.region_ = region;
    boxCount_ += region.isBox;
    if (!region.isOdd) {
        list_.insert(place);
        return;
    }
    place.where_ = Place::Where::Always;
    place.position_ = static_cast<uint32_t>(always_.size());
    always_.push_back(&place);
}

void SurfaceIndex::takeOut(Place& place)
{
    boxCount_ -= place.region_.isBox;
    switch (place.where_) {
    case Place::Where::Always:
        always_[place.position_] = always_.back();
        always_[place.position_]->position_ = place.position_;
        always_.pop_back();
        break;
    case Place::Where::List:
        list_.erase(place);
        break;
    case Place::Where::Tree:
        tree_.erase(place, [this](Place& orphan) {
            list_.insert(orphan);
            noteOrphan(orphan);
        });
        break;
    case Place::Where::Nowhere:
        break;
    }
    place.where_ = Place::Where::Nowhere;
}

// To the front of the restless.
void SurfaceIndex::noteChange(Place& place)
{
    forgetChange(place);
    place.changed_ = ++changes_;
    place.changedLook_ = looks_;
    place.earlier_ = latest_;
    (latest_ != nullptr ? latest_->later_ : earliest_) = &place;
    latest_ = &place;
    place.isListed_ = true;
    ++restlessCount_;
}

// Nothing has changed: it is the first to go back.
void SurfaceIndex::noteOrphan(Place& place)
{
    place.later_ = earliest_;
    (earliest_ != nullptr ? earliest_->earlier_ : latest_) = &place;
    earliest_ = &place;
    place.isListed_ = true;
    place.isOrphan_ = true;
    ++restlessCount_;
}

void SurfaceIndex::forgetChange(Place& place)
{
    if (!place.isListed_) {
        return;
    }
    (place.later_ != nullptr ? place.later_->earlier_ : latest_) = place.earlier_;
    (place.earlier_ != nullptr ? place.earlier_->later_ : earliest_) = place.later_;
    place.later_ = nullptr;
    place.earlier_ = nullptr;
    place.isListed_ = false;
    place.isOrphan_ = false;
    --restlessCount_;
}

// With many that wait, a look takes in more of them: about as much work as searching their list.
void SurfaceIndex::look(uint64_t everybodySaw)
{
    constexpr std::size_t kLeast = 4;
    constexpr std::size_t kPart = 512;
    ++looks_;
    if (isKnownKind_ != nullptr) {
        keepUnknownKinds();
    }
    for (std::size_t left = std::max(kLeast, restlessCount_ / kPart); left > 0; --left) {
        if (earliest_ == nullptr || !mayRest(*earliest_, everybodySaw) || !rest(*earliest_)) {
            return;
        }
    }
}

void SurfaceIndex::keepUnknownKinds()
{
    visitChanged(knownUntil_, [this](Place& place) {
        if (!place.isSilent() && !isKnownKind_(place.owner_)) {
            takeOut(place);
            put(place, Region());
        }
    });
    knownUntil_ = changes_;
}

bool SurfaceIndex::mayRest(const Place& place, uint64_t everybodySaw) const
{
    const bool isNew = place.entered_ == place.changed_;
    return place.changed_ <= everybodySaw && (isNew || looks_ - place.changedLook_ >= kRestingLooks);
}

// False while memory is short.
bool SurfaceIndex::rest(Place& place)
{
    if (place.where_ == Place::Where::List) {
        if (!tree_.makeRoom()) {
            return false;
        }
        list_.erase(place);
        tree_.insert(place);
    }
    forgetChange(place);
    return true;
}

} // namespace velk::interaction::search
