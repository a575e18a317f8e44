// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/SearchWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace velk::test
{
namespace
{

std::string randomBytes(uint32_t seed, std::size_t count)
{
    std::mt19937 random(seed);
    std::string bytes(count, '\0');
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() & 0xFF); });
    return bytes;
}

TEST(Search, AnswersAsIfItAskedEverySurface)
{
    for (uint32_t seed = 0; seed < 300; ++seed) {
        const std::string bytes = randomBytes(seed, 4000);
        const auto searched = SearchWorld::play(bytes, false);
        const auto scanned = SearchWorld::play(bytes, true);
        const auto difference = std::mismatch(searched.begin(), searched.end(), scanned.begin(), scanned.end());
        ASSERT_EQ(difference.first - searched.begin(), static_cast<std::ptrdiff_t>(scanned.size()))
            << "seed " << seed;
    }
}

} // namespace
} // namespace velk::test
