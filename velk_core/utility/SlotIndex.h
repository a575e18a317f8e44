// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace velk::utility
{

/// The place of its owner in every SlotTable: an index that no other living owner has, and a serial that no
/// other owner ever had. Indices stay below the greatest number of owners that lived at the same time.
/// Host thread only.
class SlotIndex
{
public:
    SlotIndex();
    ~SlotIndex();
    SlotIndex(const SlotIndex&) = delete;
    SlotIndex& operator=(const SlotIndex&) = delete;

    std::size_t index() const { return index_; }

    /// Never 0.
    uint64_t serial() const { return serial_; }

private:
    std::size_t index_;
    uint64_t serial_;
};

} // namespace velk::utility
