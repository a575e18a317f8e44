// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "play/Observer.h"

namespace velk_tools
{

/// What a person meant to do: when, with what, on what. Empty names stand for any.
struct Meant
{
    double time = 0; ///< Seconds from the recording's start.
    Kind kind{};
    std::string name;
    std::string target;
};

/// Reads the columns time, kind, name and target (CSV; lines that begin with # are passed over). Throws
/// InputError with file and line.
std::vector<Meant> parseMarks(const std::string& file, std::istream& text);

/// How what was decided compares with what was meant.
struct Judgement
{
    std::size_t hits = 0;
    std::size_t misses = 0;
    std::size_t wrong = 0;   ///< Began when meant, on another target.
    std::size_t doubles = 0; ///< Began once more where one was meant.
    std::size_t extra = 0;   ///< Nothing was meant.
    double meanDelay = 0;    ///< Seconds from the marks to the hits; negative for early ones.

    std::size_t faults() const { return misses + wrong + doubles + extra; }
};

/// Each mark takes the nearest start within the tolerance, in seconds, first of those on its target. Of
/// starts, those count whose kind there are marks of.
Judgement judge(const std::vector<Meant>& marks, const std::vector<Transition>& changes, double tolerance);

} // namespace velk_tools
