// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/poke/SurfaceHitCache.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/SlotTable.h"

namespace velk::interaction
{

class PokeInteractable;

/// What one update of a finger knows of the world: where the finger is, where it was, and the surfaces there.
class PokeFrame
{
public:
    /// The nearest points to the finger on an interactable's backing surface and on its patch.
    struct Hits
    {
        surface::SurfaceHit backing;
        surface::SurfaceHit patch;
    };

    void moveTo(const Vector3f& point);

    /// The finger counts as having rested: a path in the rest of this update has no length.
    void forgetMovement() { previousOrigin_ = origin_; }

    const Vector3f& getOrigin() const { return origin_; }
    const Vector3f& getPreviousOrigin() const { return previousOrigin_; }

    /// The last frame's point as it would be now, had it moved with the surface: a surface that comes towards
    /// a resting finger sees a moving one. A surface first met in this frame counts as not having moved.
    Vector3f getPreviousOriginCarriedBy(const PokeInteractable& interactable) const;

    bool hasMetBefore(const PokeInteractable& interactable) const;

    /// At the end of an update: where the surface is now, for the next one.
    void remember(const PokeInteractable& interactable);

    /// Drops what was asked about another point.
    void resetHits() { hitCache_.reset(origin_); }

    /// Asked once a frame and remembered. False when the surface has no nearest point.
    bool getBackingHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);
    bool getPatchHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);
    bool getHits(const PokeInteractable& interactable, Hits& hits);

private:
    Vector3f origin_;
    Vector3f previousOrigin_;
    SurfaceHitCache hitCache_;
    utility::SlotTable<Posef> previousSurfaceTransforms_; // inverse poses of the last frame
};

} // namespace velk::interaction
