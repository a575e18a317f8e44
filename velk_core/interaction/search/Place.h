// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/search/Box.h"

#include <cstddef>
#include <cstdint>

namespace velk::interaction
{
class IInteractable;
}

namespace velk::interaction::search
{

/// What a search knows of an interactable's surface before it asks the surface itself.
struct Region
{
    /// Holds all that can be met.
    Box box;
    /// Nothing is known: the surface is always tested.
    bool isOdd = true;
    /// Of an odd one: it does not even tell of its changes.
    bool isSilent = true;
    /// Its own sides are those of the box: see SurfaceIndex::hasBoxes.
    bool isBox = false;
};

/// Where a SurfaceIndex keeps an interactable: one of its members.
class Place
{
public:
    explicit Place(IInteractable& owner)
        : owner_(owner)
    {
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    IInteractable& getOwner() const { return owner_; }

    /// By when, on the index's count of changes, the interactable was entered and its surface last changed.
    uint64_t getEntered() const { return entered_; }
    uint64_t getChanged() const { return changed_; }

    bool isEntered() const { return where_ != Where::Nowhere; }

    /// Whether the index still waits for the surface to rest: from its entry or a change on until it has
    /// rested for a while.
    bool isRestless() const { return isListed_ && !isOrphan_; }
    bool isSilent() const { return region_.isSilent; }

private:
    friend class SurfaceIndex;
    friend class BoxList;
    friend class BoxTree;

    enum class Where : uint8_t
    {
        Nowhere,
        Always,
        List,
        Tree
    };

    IInteractable& owner_;
    Region region_;
    uint64_t entered_ = 0;
    uint64_t changed_ = 0;
    uint64_t changedLook_ = 0;
    // The list of the restless, the latest change first.
    Place* later_ = nullptr;
    Place* earlier_ = nullptr;
    uint32_t position_ = 0; // in the list or array that where_ names, or the node of the tree
    uint8_t lane_ = 0;
    Where where_ = Where::Nowhere;
    bool isListed_ = false;
    bool isOrphan_ = false; // back from the tree, though nothing has changed
};

} // namespace velk::interaction::search
