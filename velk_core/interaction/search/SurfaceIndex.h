// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/search/BoxBlock.h"
#include "velk_core/interaction/search/BoxList.h"
#include "velk_core/interaction/search/BoxTree.h"
#include "velk_core/interaction/search/Place.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace velk::interaction::search
{

/// Gathers what a ray or a finger may meet, so that not every surface has to be asked. It decides nothing: it
/// yields all that the rules could choose, and some more.
///
/// A surface that has changed waits in a list, all of which a search looks at, until it has rested for a
/// while; then it goes into a tree. Both take a step at a time, so no search is much longer than the others.
/// Odd surfaces, of which no box is known, are always yielded. Host thread only.
class SurfaceIndex
{
public:
    /// As a moment: later than all changes.
    static constexpr uint64_t kEver = std::numeric_limits<uint64_t>::max();

    using IsKnownKind = bool (*)(const IInteractable&);

    /// Interactables of which `isKnownKind`, if given, is false are always yielded and count as silent. It is
    /// asked at the first look after each change.
    explicit SurfaceIndex(IsKnownKind isKnownKind = nullptr)
        : isKnownKind_(isKnownKind)
    {
    }
    SurfaceIndex(const SurfaceIndex&) = delete;
    SurfaceIndex& operator=(const SurfaceIndex&) = delete;

    /// Only this, and a look, allocate. With std::bad_alloc nothing has changed.
    void enter(Place& place, const Region& region);
    void change(Place& place, const Region& region);
    void leave(Place& place);

    bool empty() const { return count_ == 0; }

    /// Counts entries and changes: what stands for the time here.
    uint64_t getChanges() const { return changes_; }

    /// Before a search. What has changed up to `everybodySaw` may rest, as nobody asks for these changes any
    /// more.
    void look(uint64_t everybodySaw);

    /// All that changed after the moment `since`, in no order.
    template <typename Visit>
    void visitChanged(uint64_t since, const Visit& visit) const
    {
        for (Place* place = latest_; place != nullptr && place->changed_ > since; place = place->earlier_) {
            visit(*place);
        }
    }

    template <typename Visit>
    void visitSilent(const Visit& visit) const
    {
        for (Place* place : always_) {
            if (place->isSilent()) {
                visit(*place);
            }
        }
    }

    /// Of those that have not changed after the moment `since`: all near a point, or along a ray, and all odd
    /// ones, in no order.
    template <typename Query, typename Visit>
    void find(const Query& query, uint64_t since, const Visit& visit) const
    {
        const auto visitUnchanged = [&](Place& place) {
            if (place.changed_ <= since) {
                visit(place);
            }
        };
        for (Place* place : always_) {
            visitUnchanged(*place);
        }
        list_.search(query, visitUnchanged);
        tree_.search(query, visitUnchanged);
    }

    /// Whether there are surfaces whose own sides are those of their boxes. A ray in the very plane of such a
    /// side can hit it from afar (see AxisAlignedBox::raycast), which no search along the ray finds.
    bool hasBoxes() const { return boxCount_ != 0; }

    /// For tests: from now on every search asks every surface.
    static void setScansAll(bool scansAll) { scansAll_ = scansAll; }
    static bool scansAll() { return scansAll_; }

private:
    /// A surface that has moved goes into the tree after so many searches in which it did not.
    static constexpr uint64_t kRestingLooks = 64;

    void put(Place& place, const Region& region);
    void takeOut(Place& place);
    void noteChange(Place& place);
    void noteOrphan(Place& place);
    void forgetChange(Place& place);
    void keepUnknownKinds();
    bool mayRest(const Place& place, uint64_t everybodySaw) const;
    bool rest(Place& place);

    static bool scansAll_;

    IsKnownKind isKnownKind_;
    BoxList list_;
    BoxTree tree_;
    std::vector<Place*> always_;
    Place* latest_ = nullptr;
    Place* earliest_ = nullptr;
    std::size_t restlessCount_ = 0;
    std::size_t count_ = 0;
    std::size_t boxCount_ = 0;
    uint64_t changes_ = 0;
    uint64_t knownUntil_ = 0;
    uint64_t looks_ = 0;
};

} // namespace velk::interaction::search
