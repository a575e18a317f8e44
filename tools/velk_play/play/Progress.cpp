// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "play/Progress.h"

#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

namespace velk_tools
{

namespace
{

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kInterval{100};

} // namespace

Progress::Progress(std::size_t total)
    : total_(total)
    , watched_(isatty(STDERR_FILENO) != 0)
    , next_(std::chrono::steady_clock::now() + kFirst)
{
}

void Progress::advanceTo(std::size_t done)
{
    if (!watched_ || std::chrono::steady_clock::now() < next_) {
        return;
    }
    fmt::print(stderr, "\rframe {} of {}", done, total_);
    std::fflush(stderr);
    shown_ = true;
    next_ = std::chrono::steady_clock::now() + kInterval;
}

void Progress::clear()
{
    constexpr const char* kEraseLine = "\r\x1b[K";
    if (shown_) {
        std::fputs(kEraseLine, stderr);
    }
    shown_ = false;
}

} // namespace velk_tools
