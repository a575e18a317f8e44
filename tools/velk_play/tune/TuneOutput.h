// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tune/Marks.h"
#include "tune/Smoothness.h"
#include "tune/Variation.h"

namespace velk_tools
{

/// One combination of settings, and how it did.
struct Trial
{
    Combination values;
    std::size_t starts = 0; ///< Presses, grips and the like.
    std::optional<Judgement> judgement;
    std::optional<Smoothness> smoothness;
};

struct Tuning
{
    std::string title;
    std::string recording;
    std::size_t markCount = 0;
    std::vector<Variation> variations;
    std::vector<Trial> trials;
    /// With the fewest faults; of those the best compromise of jitter and lag, or without a hand the one with
    /// the least delay.
    std::size_t best = 0;
};

/// On standard output.
void printAsTable(const Tuning& tuning);
void printAsJson(const Tuning& tuning);

/// A page with the table, and a plot where there is something to draw.
std::string reportOf(const Tuning& tuning);

} // namespace velk_tools
