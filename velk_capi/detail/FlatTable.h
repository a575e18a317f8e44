// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace velk::capi
{

/// A hash table in one array, by handles or addresses: a look-up is a multiplication and, mostly, one access.
/// Linear probing; the array is at most half full, grows with what lives, however much has come and gone, and
/// is given back with the last entry.
template <typename Key, typename Value>
class FlatTable
{
public:
    /// Null for an unknown key. Valid until the next insertion or removal.
    const Value* find(Key key) const
    {
        if (count_ == 0) {
            return nullptr;
        }
        const Entry& entry = entries_.data()[placeOf(key)];
        return entry.isUsed ? &entry.value : nullptr;
    }

    /// The key must be unknown. Only this allocates; with std::bad_alloc nothing has changed.
    void insert(Key key, Value value)
    {
        if (2 * (count_ + 1) > entries_.size()) {
            grow();
        }
        entries_[placeOf(key)] = {key, true, std::move(value)};
        ++count_;
    }

    /// The key must be known. What it stood for, out of the table.
    Value take(Key key)
    {
        const std::size_t place = placeOf(key);
        Value value = std::move(entries_[place].value);
        close(place);
        if (--count_ == 0) {
            std::vector<Entry>().swap(entries_);
        }
        return value;
    }

    bool empty() const { return count_ == 0; }

private:
    struct Entry
    {
        Key key{};
        bool isUsed = false;
        Value value{};
    };

    /// Where an unimpeded key lies: by the upper bits of a product (D. E. Knuth, "The Art of Computer
    /// Programming", volume 3, section 6.4, multiplicative hashing).
    std::size_t homeOf(Key key) const
    {
        constexpr uint64_t kGolden = 0x9E3779B97F4A7C15U;
        uint64_t number = 0;
        if constexpr (std::is_pointer_v<Key>) {
            number = reinterpret_cast<std::uintptr_t>(key);
        } else {
            number = static_cast<uint64_t>(key);
        }
        return static_cast<std::size_t>((number * kGolden) >> shift_);
    }

    std::size_t placeOf(Key key) const
    {
        const Entry* const entries = entries_.data();
        std::size_t place = homeOf(key);
        while (entries[place].isUsed && entries[place].key != key) {
            place = (place + 1) & (entries_.size() - 1);
        }
        return place;
    }

    void grow()
    {
        constexpr std::size_t kLeast = 8;
        std::vector<Entry> former(std::max(kLeast, 2 * entries_.size()));
        former.swap(entries_);
        shift_ = 64 - std::countr_zero(entries_.size());
        for (Entry& entry : former) {
            if (entry.isUsed) {
                entries_[placeOf(entry.key)] = std::move(entry);
            }
        }
    }

    // Moves up those that lie behind the hole only since it was taken.
    void close(std::size_t hole)
    {
        const std::size_t mask = entries_.size() - 1;
        for (std::size_t next = (hole + 1) & mask; entries_[next].isUsed; next = (next + 1) & mask) {
            const std::size_t fromHome = (next - homeOf(entries_[next].key)) & mask;
            if (fromHome >= ((next - hole) & mask)) {
                entries_[hole] = std::move(entries_[next]);
                hole = next;
            }
        }
        entries_[hole] = Entry();
    }

    std::vector<Entry> entries_; // their number is a power of two
    std::size_t count_ = 0;
    int shift_ = 0;
};

} // namespace velk::capi
