// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/SlotTable.h"

#include <cstdint>

namespace velk::interaction
{

class PokeInteractable;

/// A memo of the surface queries of one frame, so that each surface is asked about the finger's point once.
/// Misses are remembered as well, and so is the answer of a surface that moves or is replaced meanwhile.
class SurfaceHitCache
{
public:
    /// Starts a frame: forgets all answers and stands for another point from now on.
    void reset(const Vector3f& origin);

    /// Closest point on the whole surface behind the patch. On false, `hit` is what the surface left in it.
    bool getBackingHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);

    /// Closest point on the patch, likewise.
    bool getPatchHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);

private:
    struct HitInfo
    {
        bool valid = false;
        surface::SurfaceHit hit;
        /// The frame that the answer is of.
        uint64_t frame = 0;
    };
    using HitTable = utility::SlotTable<HitInfo>;

    const HitInfo* findCurrent(const HitTable& table, const PokeInteractable& interactable) const;

    HitTable patchHits_;
    HitTable backingHits_;
    Vector3f origin_;
    uint64_t frame_ = 1;
};

} // namespace velk::interaction
