// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/poke/SurfaceHitCache.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"
#include "velk_core/utility/SlotTable.h"

#include <cstdint>
#include <vector>

namespace velk::interaction
{

class PokeInteractable;
class PokeInteractor;

/// What one update of a finger knows of the world: where the finger is, where it was, and the surfaces there.
///
/// Of surfaces that have not changed since its last update it needs to remember nothing.
class PokeFrame
{
public:
    /// As a moment: not updated yet.
    static constexpr uint64_t kNever = 0;

    PokeFrame();
    ~PokeFrame();
    PokeFrame(const PokeFrame&) = delete;
    PokeFrame& operator=(const PokeFrame&) = delete;

    /// When all frames that were updated at all had been.
    static uint64_t getLeastMoment();

    /// In all frames, before the interactable goes away for a while.
    static void rememberInAll(const PokeInteractable& interactable);

    /// The nearest points to the finger on an interactable's backing surface and on its patch.
    struct Hits
    {
        surface::SurfaceHit backing;
        surface::SurfaceHit patch;
    };

    void moveTo(const Vector3f& point);

    /// The finger counts as having rested: a path in the rest of this update has no length.
    void forgetMovement();

    const Vector3f& getOrigin() const { return origin_; }
    const Vector3f& getPreviousOrigin() const { return previousOrigin_; }

    /// The last frame's point as it would be now, had it moved with the surface: a surface that comes towards
    /// a resting finger sees a moving one. A surface first met in this frame counts as not having moved.
    Vector3f getPreviousOriginCarriedBy(const PokeInteractable& interactable) const;

    bool hasMetBefore(const PokeInteractable& interactable) const;

    /// When the last update ended, on the index's count of changes.
    uint64_t getMoment() const { return moment_; }

    /// With `remembersAll`, nothing is taken from what the surfaces tell of their changes.
    void setRemembersAll(bool remembersAll) { remembersAll_ = remembersAll; }
    bool remembersAll() const { return remembersAll_; }

    /// At the end of an update of `finger`: where the surfaces are now, for the next one.
    void rememberSurfaces(PokeInteractor& finger);

    /// Drops what was asked about another point.
    void resetHits() { hitCache_.reset(origin_); }

    /// Asked once a frame and remembered. False when the surface has no nearest point.
    bool getBackingHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);
    bool getPatchHit(const PokeInteractable& interactable, surface::SurfaceHit& hit);
    bool getHits(const PokeInteractable& interactable, Hits& hits);

private:
    /// The last answer of getPreviousOriginCarriedBy(), of the surface whose last change is this one.
    struct Carried
    {
        uint64_t changed = 0;
        Vector3f point;
    };

    bool isMetByTable(const PokeInteractable& interactable) const;
    bool hasRested(const PokeInteractable& interactable) const;
    Vector3f carry(const PokeInteractable& interactable) const;
    Posef findPreviousPose(const PokeInteractable& interactable) const;
    void remember(const PokeInteractable& interactable, const Posef& pose);

    Vector3f origin_;
    Vector3f previousOrigin_;
    SurfaceHitCache hitCache_;
    utility::SlotTable<Posef> previousPoses_;
    mutable Carried carried_;
    std::vector<PokeInteractable*> seen_; // by rememberSurfaces() alone
    uint64_t moment_ = kNever;
    bool remembersAll_ = false;
};

} // namespace velk::interaction
