// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/Suggestion.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

/// Of ASCII alone: names have no other letters, and the locale has no say.
char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The optimal string alignment distance, row by row: each entry is that of the first letters of `a` and `b`.
std::size_t editDistance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        beforeLast = last;
        last = row;
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = lowered(a[i - 1]) == lowered(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && lowered(a[i - 1]) == lowered(b[j - 2]) &&
                lowered(a[i - 2]) == lowered(b[j - 1])) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
    }
    return row.back();
}

} // namespace

std::string_view nearestName(std::string_view word, const std::vector<std::string_view>& names)
{
    std::string_view nearest;
    std::size_t least = 0;
    for (const std::string_view name : names) {
        const std::size_t longer = std::max(word.size(), name.size());
        const std::size_t limit = std::max<std::size_t>(1, longer / 3);
        // Words much longer than any name are not compared letter by letter.
        if (longer - std::min(word.size(), name.size()) > limit) {
            continue;
        }
        const std::size_t distance = editDistance(word, name);
        if (distance <= limit && (nearest.empty() || distance < least)) {
            nearest = name;
            least = distance;
        }
    }
    return nearest;
}

std::string suggestion(std::string_view word, const std::vector<std::string_view>& names)
{
    const std::string_view nearest = nearestName(word, names);
    return nearest.empty() ? std::string() : fmt::format("; did you mean {}?", nearest);
}

} // namespace velk_tools
