// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

namespace velk::utility
{

/// A callable that stands in for a rule: until it is cleared or, as a one-shot, until its owner has used it.
template <typename R>
class OneShot
{
public:
    void set(std::function<R()>&& compute, bool isOneShot)
    {
        compute_ = std::move(compute);
        isOneShot_ = isOneShot;
    }
    void clear()
    {
        compute_ = nullptr;
        isOneShot_ = false;
    }

    bool isOneShot() const { return isOneShot_; }
    explicit operator bool() const { return static_cast<bool>(compute_); }
    R operator()() const { return compute_(); }

private:
    std::function<R()> compute_;
    bool isOneShot_ = false;
};

} // namespace velk::utility
