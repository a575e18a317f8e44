// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace velk::utility
{

/// A set that is visited in the order of insertion, so that ties between its members are decided the same way
/// in every run and on every platform. Membership is a linear search: the sets are small, or rarely changed.
template <typename T>
class OrderedSet
{
public:
    using value_type = T;
    using const_iterator = typename std::vector<T>::const_iterator;

    /// False when the value was there already; it then keeps its place.
    bool insert(const T& value)
    {
        if (contains(value)) {
            return false;
        }
        values_.push_back(value);
        return true;
    }

    /// False when there was nothing to erase.
    bool erase(const T& value)
    {
        const auto found = std::find(values_.begin(), values_.end(), value);
        if (found == values_.end()) {
            return false;
        }
        values_.erase(found);
        return true;
    }

    /// Takes anything comparable with a member, such as a pointer to const.
    template <typename Key>
    bool contains(const Key& value) const
    {
        return std::find(values_.begin(), values_.end(), value) != values_.end();
    }

    /// So many values then find room without an allocation.
    void reserve(std::size_t count) { values_.reserve(count); }

    bool empty() const { return values_.empty(); }
    std::size_t size() const { return values_.size(); }
    const_iterator begin() const { return values_.begin(); }
    const_iterator end() const { return values_.end(); }

private:
    std::vector<T> values_;
};

} // namespace velk::utility
