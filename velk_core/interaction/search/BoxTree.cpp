// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/BoxTree.h"

#include <algorithm>
#include <new>

namespace velk::interaction::search
{

namespace
{

/// A full node and one more.
constexpr std::size_t kOverfull = BoxBlock::kSize + 1;

/// Neither half of a split has fewer.
constexpr std::size_t kLeast = 3;

} // namespace

// Each level can split, and the root gets a new one above it.
bool BoxTree::makeRoom()
{
    if (freeCount_ >= height_ + 2) {
        return true;
    }
    try {
        pages_.reserve(pages_.size() + 1);
        pages_.push_back(std::make_unique<Page>());
    } catch (const std::bad_alloc&) {
        return false;
    }
    const auto first = static_cast<uint32_t>((pages_.size() - 1) * kNodesInPage);
    for (uint32_t index = first + kNodesInPage; index-- > first;) {
        giveNode(index);
    }
    return true;
}

void BoxTree::clear()
{
    std::vector<std::unique_ptr<Page>>().swap(pages_);
    firstFree_ = kNone;
    freeCount_ = 0;
    root_ = kNone;
    height_ = 0;
}

uint32_t BoxTree::takeNode(bool isLeaf)
{
    const uint32_t taken = firstFree_;
    Node& made = node(taken);
    firstFree_ = made.parent;
    --freeCount_;
    made.parent = kNone;
    made.count = 0;
    made.isLeaf = isLeaf;
    return taken;
}

void BoxTree::giveNode(uint32_t index)
{
    node(index).parent = firstFree_;
    firstFree_ = index;
    ++freeCount_;
}

void BoxTree::insert(Place& place)
{
    if (root_ == kNone) {
        root_ = takeNode(true);
        height_ = 1;
    }
    Item item{place.region_.box, {}};
    item.child.place = &place;
    place.where_ = Place::Where::Tree;
    insertInto(chooseLeaf(item.box), item);
}

uint32_t BoxTree::chooseLeaf(const Box& box) const
{
    uint32_t index = root_;
    while (!node(index).isLeaf) {
        index = node(index).children[static_cast<std::size_t>(chooseLane(node(index), box))].node;
    }
    return index;
}

// The child that grows least, and of those that grow equally the smallest.
int BoxTree::chooseLane(const Node& parent, const Box& box)
{
    int best = 0;
    float bestGrowth = Box::kEndless;
    float bestArea = Box::kEndless;
    for (int lane = 0; lane < parent.count; ++lane) {
        Box grown = parent.boxes.get(lane);
        const float area = grown.halfArea();
        grown.add(box);
        const float growth = grown.halfArea() - area;
        if (growth < bestGrowth || (growth == bestGrowth && area < bestArea)) {
            best = lane;
            bestGrowth = growth;
            bestArea = area;
        }
    }
    return best;
}

void BoxTree::put(uint32_t index, int lane, const Item& item)
{
    Node& parent = node(index);
    parent.boxes.set(lane, item.box);
    parent.children[static_cast<std::size_t>(lane)] = item.child;
    if (parent.isLeaf) {
        item.child.place->position_ = index;
        item.child.place->lane_ = static_cast<uint8_t>(lane);
    } else {
        node(item.child.node).parent = index;
        node(item.child.node).laneInParent = static_cast<uint8_t>(lane);
    }
}

void BoxTree::append(uint32_t index, const Item& item)
{
    put(index, node(index).count++, item);
}

// Splits full nodes on the way up.
void BoxTree::insertInto(uint32_t index, const Item& item)
{
    if (node(index).count < kSize) {
        append(index, item);
        fit(index);
        return;
    }
    const uint32_t parent = node(index).parent;
    Item half;
    half.child.node = split(index, item);
    half.box = boxOf(half.child.node);
    if (parent != kNone) {
        node(parent).boxes.set(node(index).laneInParent, boxOf(index));
        insertInto(parent, half);
        return;
    }
    root_ = takeNode(false);
    ++height_;
    Item former;
    former.child.node = index;
    former.box = boxOf(index);
    append(root_, former);
    append(root_, half);
}

// Along the axis and at the place where the halves' areas, weighed by what they hold, are least.
uint32_t BoxTree::split(uint32_t index, const Item& item)
{
    std::array<Item, kOverfull> items;
    for (int lane = 0; lane < kSize; ++lane) {
        items[static_cast<std::size_t>(lane)] = {node(index).boxes.get(lane),
                                                 node(index).children[static_cast<std::size_t>(lane)]};
    }
    items[kSize] = item;

    std::array<Item, kOverfull> best = items;
    std::size_t bestLeft = kOverfull / 2;
    float bestCost = Box::kEndless;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::sort(items.begin(), items.end(), [axis](const Item& a, const Item& b) {
            return a.box.lower[axis] + a.box.upper[axis] < b.box.lower[axis] + b.box.upper[axis];
        });
        std::array<float, kOverfull> areaFrom{};
        Box right;
        for (std::size_t i = kOverfull; i-- > 0;) {
            right.add(items[i].box);
            areaFrom[i] = right.halfArea();
        }
        Box left;
        for (std::size_t count = 1; count + kLeast <= kOverfull; ++count) {
            left.add(items[count - 1].box);
            const float cost = left.halfArea() * static_cast<float>(count) +
                               areaFrom[count] * static_cast<float>(kOverfull - count);
            if (count >= kLeast && cost < bestCost) {
                best = items;
                bestLeft = count;
                bestCost = cost;
            }
        }
    }

    const uint32_t sibling = takeNode(node(index).isLeaf);
    node(index).count = 0;
    for (std::size_t i = 0; i < kOverfull; ++i) {
        append(i < bestLeft ? index : sibling, best[i]);
    }
    return sibling;
}

// The last child takes the lane.
void BoxTree::removeLane(uint32_t index, int lane)
{
    Node& parent = node(index);
    --parent.count;
    if (lane != parent.count) {
        put(index, lane, {parent.boxes.get(parent.count), parent.children[parent.count]});
    }
}

// After a removal: frees nodes that hold nothing, and a root that has only one child to hand on to.
void BoxTree::shrink(uint32_t index)
{
    while (node(index).count == 0) {
        const uint32_t parent = node(index).parent;
        const uint8_t lane = node(index).laneInParent;
        giveNode(index);
        if (parent == kNone) {
            root_ = kNone;
            height_ = 0;
            return;
        }
        removeLane(parent, lane);
        index = parent;
    }
    fit(index);
    while (!node(root_).isLeaf && node(root_).count == 1) {
        const uint32_t former = root_;
        root_ = node(former).children[0].node;
        node(root_).parent = kNone;
        giveNode(former);
        --height_;
    }
}

// Carries a node's changed box upwards, as far as it makes a difference.
void BoxTree::fit(uint32_t index)
{
    for (uint32_t parent = node(index).parent; parent != kNone; parent = node(index).parent) {
        const Box box = boxOf(index);
        BoxBlock& boxes = node(parent).boxes;
        if (boxes.get(node(index).laneInParent) == box) {
            return;
        }
        boxes.set(node(index).laneInParent, box);
        index = parent;
    }
}

Box BoxTree::boxOf(uint32_t index) const
{
    Box box;
    for (int lane = 0; lane < node(index).count; ++lane) {
        box.add(node(index).boxes.get(lane));
    }
    return box;
}

} // namespace velk::interaction::search
