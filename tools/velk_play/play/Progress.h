// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <chrono>
#include <cstddef>

namespace velk_tools
{

/// A line on standard error that tells how far a long run is; silent on a short one and when nobody watches.
class Progress
{
public:
    explicit Progress(std::size_t total);
    void advanceTo(std::size_t done);
    /// Takes the line away.
    void clear();

private:
    std::size_t total_;
    bool watched_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_;
};

} // namespace velk_tools
