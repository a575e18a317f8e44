// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeFrame.h"

#include "velk_core/interaction/poke/PokeInteractable.h"

namespace velk::interaction
{

using surface::SurfaceHit;

void PokeFrame::moveTo(const Vector3f& point)
{
    previousOrigin_ = origin_;
    origin_ = point;
}

Vector3f PokeFrame::getPreviousOriginCarriedBy(const PokeInteractable& interactable) const
{
    const Posef pose = interactable.getSurfacePatch().getBackingSurface().getPose();
    const Posef* previousInverse = previousSurfaceTransforms_.find(interactable.getSlot());
    const Vector3f local =
        (previousInverse != nullptr ? *previousInverse : pose.Inverted()).Transform(previousOrigin_);
    return pose.Transform(local);
}

bool PokeFrame::hasMetBefore(const PokeInteractable& interactable) const
{
    return previousSurfaceTransforms_.find(interactable.getSlot()) != nullptr;
}

void PokeFrame::remember(const PokeInteractable& interactable)
{
    previousSurfaceTransforms_.assign(interactable.getSlot()) =
        interactable.getSurfacePatch().getBackingSurface().getPose().Inverted();
}

bool PokeFrame::getBackingHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    return hitCache_.getBackingHit(interactable, hit);
}

bool PokeFrame::getPatchHit(const PokeInteractable& interactable, SurfaceHit& hit)
{
    return hitCache_.getPatchHit(interactable, hit);
}

bool PokeFrame::getHits(const PokeInteractable& interactable, Hits& hits)
{
    return getBackingHit(interactable, hits.backing) && getPatchHit(interactable, hits.patch);
}

} // namespace velk::interaction
