// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"

#include <cstddef>
#include <cstdint>
#include <vector>

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
    struct Answer
    {
        bool isKnown = false;
        bool valid = false;
        surface::SurfaceHit hit;
    };

    struct Entry
    {
        Answer patch;
        Answer backing;
        /// The interactable's, see SlotIndex.
        uint64_t serial = 0;
        /// The frame that the answers are of: an entry of another one is free.
        uint64_t frame = 0;
    };

    Entry& entryOf(const PokeInteractable& interactable);
    Entry& probe(uint64_t serial);
    void grow();

    // A few interactables a frame: a hash table by serial, at most half full.
    std::vector<Entry> entries_;
    Entry* last_ = nullptr; // the one that was asked for last
    std::size_t count_ = 0; // of this frame
    Vector3f origin_;
    uint64_t frame_ = 1;
};

} // namespace velk::interaction
