// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/utility/SlotIndex.h"

#include <vector>

namespace velk::utility
{

/// One value for each owner of a SlotIndex. A look-up is one array access. The table neither owns the owners
/// nor hears of their end: an entry counts only while its serial is the owner's, so one that takes over the
/// index of a dead owner finds nothing.
template <typename T>
class SlotTable
{
public:
    /// Null when nothing was assigned for this very owner. Valid until the next `assign`.
    const T* find(const SlotIndex& slot) const
    {
        if (slot.index() >= entries_.size() || entries_[slot.index()].serial != slot.serial()) {
            return nullptr;
        }
        return &entries_[slot.index()].value;
    }

    /// The owner's entry, to be written; its old content, if any, is not cleared. Allocates only while owners
    /// at higher indices than ever before turn up.
    T& assign(const SlotIndex& slot)
    {
        if (slot.index() >= entries_.size()) {
            entries_.resize(slot.index() + 1);
        }
        entries_[slot.index()].serial = slot.serial();
        return entries_[slot.index()].value;
    }

private:
    struct Entry
    {
        uint64_t serial = 0;
        T value{};
    };

    std::vector<Entry> entries_;
};

} // namespace velk::utility
