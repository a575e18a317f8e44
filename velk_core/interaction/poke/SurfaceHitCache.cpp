// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/SurfaceHitCache.h"

#include "velk_core/interaction/poke/PokeInteractable.h"

namespace velk::interaction
{

using surface::SurfaceHit;

void SurfaceHitCache::reset(const Vector3f& origin)
{
    origin_ = origin;
    ++frame_; // outdates every entry; the tables keep their room
}

const SurfaceHitCache::HitInfo* SurfaceHitCache::findCurrent(const HitTable& table,
                                                             const PokeInteractable& interactable) const
{
    const HitInfo* found = table.find(interactable.getSlot());
    return found != nullptr && found->frame == frame_ ? found : nullptr;
}

bool SurfaceHitCache::getBackingHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    const HitInfo* info = findCurrent(backingHits_, interactable);
    if (info == nullptr) {
        SurfaceHit fresh;
        const bool valid = interactable.closestBackingSurfaceHit(origin_, fresh);
        info = &(backingHits_.assign(interactable.getSlot()) = {valid, fresh, frame_});
    }
    hit = info->hit;
    return info->valid;
}

bool SurfaceHitCache::getPatchHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    const HitInfo* info = findCurrent(patchHits_, interactable);
    if (info == nullptr) {
        SurfaceHit fresh;
        const bool valid = interactable.closestSurfacePatchHit(origin_, fresh);
        info = &(patchHits_.assign(interactable.getSlot()) = {valid, fresh, frame_});
    }
    hit = info->hit;
    return info->valid;
}

} // namespace velk::interaction
