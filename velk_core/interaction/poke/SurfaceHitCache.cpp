// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/SurfaceHitCache.h"

#include "velk_core/interaction/poke/PokeInteractable.h"

#include <algorithm>

namespace velk::interaction
{

using surface::SurfaceHit;

void SurfaceHitCache::reset(const Vector3f& origin)
{
    origin_ = origin;
    ++frame_; // outdates every entry; the table keeps its room
    count_ = 0;
}

SurfaceHitCache::Entry& SurfaceHitCache::probe(uint64_t serial)
{
    const std::size_t mask = entries_.size() - 1;
    std::size_t place = serial & mask;
    while (entries_[place].frame == frame_ && entries_[place].serial != serial) {
        place = (place + 1) & mask;
    }
    return entries_[place];
}

void SurfaceHitCache::grow()
{
    constexpr std::size_t kLeast = 16;
    std::vector<Entry> former(std::max(kLeast, 2 * entries_.size()));
    former.swap(entries_);
    for (const Entry& entry : former) {
        if (entry.frame == frame_) {
            probe(entry.serial) = entry;
        }
    }
}

SurfaceHitCache::Entry& SurfaceHitCache::entryOf(const PokeInteractable& interactable)
{
    const uint64_t serial = interactable.getSlot().serial();
    if (last_ != nullptr && last_->serial == serial && last_->frame == frame_) {
        return *last_;
    }
    if (2 * count_ >= entries_.size()) {
        grow();
    }
    Entry& entry = probe(serial);
    last_ = &entry;
    if (entry.frame != frame_) {
        entry.patch.isKnown = false;
        entry.backing.isKnown = false;
        entry.serial = serial;
        entry.frame = frame_;
        ++count_;
    }
    return entry;
}

bool SurfaceHitCache::getBackingHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    const Answer* answer = &entryOf(interactable).backing;
    if (!answer->isKnown) {
        Answer fresh{true, false, {}};
        fresh.valid = interactable.closestBackingSurfaceHit(origin_, fresh.hit);
        // Found anew: a host's surface may have asked here meanwhile, and the table have grown.
        answer = &(entryOf(interactable).backing = fresh);
    }
    hit = answer->hit;
    return answer->valid;
}

bool SurfaceHitCache::getPatchHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    const Answer* answer = &entryOf(interactable).patch;
    if (!answer->isKnown) {
        Answer fresh{true, false, {}};
        fresh.valid = interactable.closestSurfacePatchHit(origin_, fresh.hit);
        // Found anew: a host's surface may have asked here meanwhile, and the table have grown.
        answer = &(entryOf(interactable).patch = fresh);
    }
    hit = answer->hit;
    return answer->valid;
}

} // namespace velk::interaction
