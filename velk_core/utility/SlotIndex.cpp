// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/utility/SlotIndex.h"

#include "velk_common/NeverDestroyed.h"

#include <bit>
#include <vector>

namespace velk::utility
{

namespace
{

class SlotPool
{
public:
    std::size_t take()
    {
        if (free_.empty()) {
            // Room for every index made so far, so that giving one back, in a destructor, never allocates.
            free_.reserve(std::bit_ceil(count_ + 1));
            return count_++;
        }
        const std::size_t index = free_.back();
        free_.pop_back();
        return index;
    }

    void give(std::size_t index)
    {
        free_.push_back(index);
        if (free_.size() == count_) {
            // The last owner has gone. The buffer goes too, see NeverDestroyed.
            std::vector<std::size_t>().swap(free_);
            count_ = 0;
        }
    }

    uint64_t nextSerial() { return ++lastSerial_; }

private:
    std::vector<std::size_t> free_;
    std::size_t count_ = 0;
    uint64_t lastSerial_ = 0;
};

SlotPool& pool()
{
    static common::NeverDestroyed<SlotPool> instance;
    return *instance;
}

} // namespace

SlotIndex::SlotIndex()
    : index_(pool().take())
    , serial_(pool().nextSerial())
{
}

SlotIndex::~SlotIndex()
{
    pool().give(index_);
}

} // namespace velk::utility
