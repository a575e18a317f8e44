// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <iterator>

namespace velk::utility
{

/// Pointers in the order of insertion, each in a link that its owner provides: nothing is searched, nothing
/// is allocated. A link is in one list at a time and must outlive its time there.
template <typename T>
class LinkedList
{
public:
    class Link
    {
    public:
        Link() = default;
        Link(const Link&) = delete;
        Link& operator=(const Link&) = delete;

        bool isLinked() const { return value_ != nullptr; }

    private:
        friend class LinkedList;

        T* value_ = nullptr;
        Link* previous_ = nullptr;
        Link* next_ = nullptr;
    };

    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T*;
        using difference_type = std::ptrdiff_t;
        using pointer = T* const*;
        using reference = T*;

        Iterator() = default;
        explicit Iterator(const Link* at)
            : at_(at)
        {
        }
        T* operator*() const { return at_->value_; }
        Iterator& operator++()
        {
            at_ = at_->next_;
            return *this;
        }
        Iterator operator++(int)
        {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator&) const = default;

    private:
        const Link* at_ = nullptr;
    };

    /// At the end. One that is there already keeps its place.
    void insert(T& value, Link& link)
    {
        if (link.isLinked()) {
            return;
        }
        link.value_ = &value;
        link.previous_ = last_;
        (last_ != nullptr ? last_->next_ : first_) = &link;
        last_ = &link;
        ++size_;
    }

    /// One that is not there stays out.
    void erase(Link& link)
    {
        if (!link.isLinked()) {
            return;
        }
        (link.previous_ != nullptr ? link.previous_->next_ : first_) = link.next_;
        (link.next_ != nullptr ? link.next_->previous_ : last_) = link.previous_;
        link.value_ = nullptr;
        link.previous_ = nullptr;
        link.next_ = nullptr;
        --size_;
    }

    std::size_t size() const { return size_; }
    Iterator begin() const { return Iterator(first_); }
    Iterator end() const { return Iterator(); }

private:
    Link* first_ = nullptr;
    Link* last_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace velk::utility
