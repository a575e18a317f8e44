// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/search/BoxBlock.h"
#include "velk_core/interaction/search/Place.h"

#include <array>
#include <bit>
#include <cstddef>
#include <memory>
#include <vector>

namespace velk::interaction::search
{

/// A tree of boxes, eight to a node, that grows and shrinks by single boxes in logarithmic time and so never
/// has to be built anew (Guttman, "R-trees: a dynamic index structure for spatial searching", 1984; nodes are
/// split by the areas of the halves, as in Beckmann et al., "The R*-tree", 1990).
class BoxTree
{
public:
    /// Room for one more box. Only this allocates; false, with nothing changed, while memory is short.
    bool makeRoom();

    /// Needs makeRoom() before.
    void insert(Place& place);

    /// Calls `orphaned` with those that lose their node with it, which the caller has to keep elsewhere.
    template <typename Orphaned>
    void erase(Place& place, const Orphaned& orphaned)
    {
        const uint32_t leaf = place.position_;
        removeLane(leaf, place.lane_);
        place.where_ = Place::Where::Nowhere;
        if (node(leaf).count == 1 && leaf != root_) {
            Place& orphan = *node(leaf).children[0].place;
            removeLane(leaf, 0);
            orphan.where_ = Place::Where::Nowhere;
            shrink(leaf);
            orphaned(orphan);
            return;
        }
        shrink(leaf);
    }

    template <typename Query, typename Visit>
    void search(const Query& query, const Visit& visit) const
    {
        if (root_ != kNone) {
            searchNode(root_, query, visit);
        }
    }

    /// Gives all memory back. The tree must hold nothing.
    void clear();

private:
    static constexpr uint32_t kNone = ~0u;
    static constexpr int kSize = BoxBlock::kSize;
    static constexpr std::size_t kNodesInPage = 64;

    union Child
    {
        Place* place = nullptr;
        uint32_t node;
    };

    struct Node
    {
        BoxBlock boxes;
        std::array<Child, kSize> children{};
        uint32_t parent = kNone; // of a free node: the next free one
        uint8_t laneInParent = 0;
        uint8_t count = 0;
        bool isLeaf = true;
    };

    /// A box on its way into a node.
    struct Item
    {
        Box box;
        Child child;
    };

    using Page = std::array<Node, kNodesInPage>;

    Node& node(uint32_t index) { return (*pages_[index / kNodesInPage])[index % kNodesInPage]; }
    const Node& node(uint32_t index) const { return (*pages_[index / kNodesInPage])[index % kNodesInPage]; }

    template <typename Query, typename Visit>
    void searchNode(uint32_t index, const Query& query, const Visit& visit) const
    {
        const Node& searched = node(index);
        uint32_t found = searched.boxes.search(query) & ((1u << searched.count) - 1);
        for (; found != 0; found &= found - 1) {
            const Child child = searched.children[static_cast<std::size_t>(std::countr_zero(found))];
            if (searched.isLeaf) {
                visit(*child.place);
            } else {
                searchNode(child.node, query, visit);
            }
        }
    }

    uint32_t takeNode(bool isLeaf);
    void giveNode(uint32_t index);
    uint32_t chooseLeaf(const Box& box) const;
    static int chooseLane(const Node& parent, const Box& box);
    void put(uint32_t index, int lane, const Item& item);
    void append(uint32_t index, const Item& item);
    void insertInto(uint32_t index, const Item& item);
    uint32_t split(uint32_t index, const Item& item);
    void removeLane(uint32_t index, int lane);
    void shrink(uint32_t index);
    void fit(uint32_t index);
    Box boxOf(uint32_t index) const;

    std::vector<std::unique_ptr<Page>> pages_;
    uint32_t firstFree_ = kNone;
    std::size_t freeCount_ = 0;
    uint32_t root_ = kNone;
    std::size_t height_ = 0;
};

} // namespace velk::interaction::search
