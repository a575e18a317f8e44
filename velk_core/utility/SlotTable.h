// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/utility/SlotIndex.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace velk::utility
{

/// One value for each owner of a SlotIndex. A look-up is two array accesses. The table neither owns the
/// owners nor hears of their end: an entry counts only while its serial is the owner's, so one that takes
/// over the index of a dead owner finds nothing.
template <typename T>
class SlotTable
{
public:
    /// Null when nothing was assigned for this very owner. Valid as long as the table.
    const T* find(const SlotIndex& slot) const
    {
        const std::size_t page = slot.index() / kPageSize;
        if (page >= pages_.size() || pages_[page] == nullptr) {
            return nullptr;
        }
        const Entry& entry = (*pages_[page])[slot.index() % kPageSize];
        return entry.serial == slot.serial() ? &entry.value : nullptr;
    }

    /// The owner's entry, to be written; its old content, if any, is not cleared. Allocates a page at most,
    /// where no index near this one had an entry before.
    T& assign(const SlotIndex& slot)
    {
        const std::size_t page = slot.index() / kPageSize;
        if (page >= pages_.size()) {
            pages_.resize(page + 1);
        }
        if (pages_[page] == nullptr) {
            pages_[page] = std::make_unique<Page>();
        }
        Entry& entry = (*pages_[page])[slot.index() % kPageSize];
        entry.serial = slot.serial();
        return entry.value;
    }

private:
    static constexpr std::size_t kPageSize = 64;

    struct Entry
    {
        uint64_t serial = 0;
        T value{};
    };
    using Page = std::array<Entry, kPageSize>;

    std::vector<std::unique_ptr<Page>> pages_;
};

} // namespace velk::utility
