// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "play/States.h"
#include "velk_core/witness/Witness.h"

namespace velk_tools
{

using velk::witness::Rule;

/// An answer of a rule, with what it is about in words.
struct Reason
{
    Rule rule{};
    bool holds = false;
    float value = velk::witness::kNoNumber;
    float limit = velk::witness::kNoNumber;

    /// How far the value is from the limit; not a number where there are none.
    float margin() const;
};

enum class Happening
{
    Hover,
    Press,
    Release,
    Cancel,
    Recoil,
    Unhover,
    Start, ///< Of a pinch, a grip or a wanted direction.
    End,
    Miss ///< Something that nearly happened.
};

std::string_view nameOf(Happening happening);

/// Something that happened or nearly did, and why.
struct Episode
{
    double from = 0; ///< Seconds.
    double to = 0;
    Happening happening{};
    Kind kind{};
    std::string name;
    std::string target;
    std::string text; ///< What it was, in words: of each miss, and of what no rule of its own ended.
    std::vector<Reason> reasons;
};

} // namespace velk_tools
