// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/search/BoxBlock.h"
#include "velk_core/interaction/search/Place.h"

#include <bit>
#include <cstddef>
#include <vector>

namespace velk::interaction::search
{

/// Boxes without an order, all of which a search looks at: what moves.
class BoxList
{
public:
    /// Room for so many: only this allocates.
    void reserve(std::size_t count);

    void insert(Place& place);
    void update(const Place& place);
    void erase(Place& place);

    std::size_t size() const { return places_.size(); }

    template <typename Query, typename Visit>
    void search(const Query& query, const Visit& visit) const
    {
        for (std::size_t first = 0; first < places_.size(); first += BoxBlock::kSize) {
            uint32_t found = blocks_[first / BoxBlock::kSize].search(query);
            if (places_.size() - first < BoxBlock::kSize) {
                found &= (1u << (places_.size() - first)) - 1;
            }
            for (; found != 0; found &= found - 1) {
                visit(*places_[first + static_cast<std::size_t>(std::countr_zero(found))]);
            }
        }
    }

private:
    BoxBlock& blockOf(std::size_t position) { return blocks_[position / BoxBlock::kSize]; }
    static int laneOf(std::size_t position) { return static_cast<int>(position % BoxBlock::kSize); }

    std::vector<BoxBlock> blocks_;
    std::vector<Place*> places_;
};

} // namespace velk::interaction::search
