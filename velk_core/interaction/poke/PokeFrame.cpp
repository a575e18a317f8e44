// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeFrame.h"

#include "velk_common/NeverDestroyed.h"
#include "velk_core/interaction/poke/PokeInteractable.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/utility/OrderedSet.h"

#include <algorithm>

namespace velk::interaction
{

using surface::SurfaceHit;

namespace
{

utility::OrderedSet<PokeFrame*>& frames()
{
    static common::NeverDestroyed<utility::OrderedSet<PokeFrame*>> instance;
    return *instance;
}

} // namespace

PokeFrame::PokeFrame()
{
    frames().insert(this);
}

PokeFrame::~PokeFrame()
{
    frames().erase(this);
    if (frames().empty()) {
        frames() = {}; // gives the buffer back, see NeverDestroyed
    }
}

void PokeFrame::moveTo(const Vector3f& point)
{
    previousOrigin_ = origin_;
    origin_ = point;
    carried_ = {};
}

void PokeFrame::forgetMovement()
{
    previousOrigin_ = origin_;
    carried_ = {};
}

Vector3f PokeFrame::getPreviousOriginCarriedBy(const PokeInteractable& interactable) const
{
    const search::Place& place = interactable.getPlace();
    if (carried_.changed == place.getChanged() && place.isEntered()) {
        return carried_.point;
    }
    const Vector3f point = carry(interactable);
    if (!place.isSilent() && !isMetByTable(interactable)) {
        carried_ = {place.getChanged(), point};
    }
    return point;
}

bool PokeFrame::isMetByTable(const PokeInteractable& interactable) const
{
    return remembersAll_ || interactable.isSelective();
}

bool PokeFrame::hasMetBefore(const PokeInteractable& interactable) const
{
    if (isMetByTable(interactable)) {
        return previousPoses_.find(interactable.getSlot()) != nullptr;
    }
    return interactable.getPlace().getEntered() <= moment_;
}

bool PokeFrame::hasRested(const PokeInteractable& interactable) const
{
    const search::Place& place = interactable.getPlace();
    return !isMetByTable(interactable) && !place.isSilent() && place.getChanged() <= moment_;
}

Vector3f PokeFrame::carry(const PokeInteractable& interactable) const
{
    if (hasRested(interactable)) {
        const SurfaceMotion& motion = interactable.getMotion();
        return motion.getPose().Transform(motion.getInverse().Transform(previousOrigin_));
    }
    const Posef pose = interactable.getSurfacePatch().getBackingSurface().getPose();
    const Posef previous = hasMetBefore(interactable) ? findPreviousPose(interactable) : pose;
    return pose.Transform(previous.Inverted().Transform(previousOrigin_));
}

// Of an interactable that was met. One that has changed since the last update was remembered in the last
// update that saw it change; if none did, it was where it rested until it began to move.
Posef PokeFrame::findPreviousPose(const PokeInteractable& interactable) const
{
    const Posef* remembered = previousPoses_.find(interactable.getSlot());
    if (isMetByTable(interactable)) {
        return *remembered;
    }
    const SurfaceMotion& motion = interactable.getMotion();
    if (hasRested(interactable)) {
        return motion.getPose();
    }
    return remembered != nullptr ? *remembered : motion.getRestPose();
}

void PokeFrame::remember(const PokeInteractable& interactable, const Posef& pose)
{
    previousPoses_.assign(interactable.getSlot()) = pose;
}

// Gathered first: a host's filter or surface that moves something meanwhile changes the index's lists.
void PokeFrame::rememberSurfaces(PokeInteractor& finger)
{
    const search::SurfaceIndex& index = PokeInteractable::getStaticIndex();
    const uint64_t now = index.getChanges();
    if (remembersAll_) {
        const auto& all = PokeInteractable::getStaticRegistry().getAll();
        seen_.assign(all.begin(), all.end());
    } else {
        seen_.clear();
        const auto see = [this](const search::Place& place) {
            seen_.push_back(static_cast<PokeInteractable*>(&place.getOwner()));
        };
        index.visitChanged(moment_, see);
        index.visitSilent(see);
    }
    for (PokeInteractable* interactable : seen_) {
        if (PokeInteractable::getStaticRegistry().admits(finger, *interactable)) {
            remember(*interactable, interactable->getSurfacePatch().getBackingSurface().getPose());
        }
    }
    moment_ = now;
    carried_ = {};
}

void PokeFrame::rememberInAll(const PokeInteractable& interactable)
{
    for (PokeFrame* frame : frames()) {
        if (!frame->isMetByTable(interactable) && frame->hasMetBefore(interactable)) {
            frame->remember(interactable, frame->findPreviousPose(interactable));
        }
    }
}

uint64_t PokeFrame::getLeastMoment()
{
    uint64_t least = search::SurfaceIndex::kEver;
    for (const PokeFrame* frame : frames()) {
        if (frame->moment_ != kNever) {
            least = std::min(least, frame->moment_);
        }
    }
    return least;
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
