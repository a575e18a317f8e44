// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A world of surfaces, rays and fingers, played twice: whether the index gathers the candidates or every
// surface is asked, the answers are the same bits.
#include "fuzz/FuzzTarget.h"
#include "tests/support/SearchWorld.h"

#include <algorithm>

namespace velk_fuzz
{

uint64_t runInput(std::string_view bytes, Run run)
{
    const std::vector<uint32_t> searched = velk::test::SearchWorld::play(bytes, false);
    const std::vector<uint32_t> scanned = velk::test::SearchWorld::play(bytes, true);
    const auto difference = std::mismatch(searched.begin(), searched.end(), scanned.begin(), scanned.end());
    if (run == Run::Echo) {
        std::printf("%zu answers, %zd of them before the first difference\n", scanned.size(),
                    difference.first - searched.begin());
    }
    expect(searched == scanned, "an index changes no answer");
    uint64_t digest = 0xcbf29ce484222325U;
    for (const uint32_t answer : searched) {
        digest = (digest ^ answer) * 0x100000001b3U;
    }
    return digest;
}

std::string decodeFile(const std::string&, std::string content)
{
    return content;
}

} // namespace velk_fuzz
