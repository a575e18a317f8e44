// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/GenerateGuid.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>

namespace velk::telemetry
{
namespace
{

constexpr int kGuidWords = 4;

uint32_t nextState(uint32_t state)
{
    return state * 1103515245U + 12345U;
}

} // namespace

std::string generateGuidString()
{
    unsigned int seed = generateSeed();
    return generateGuidStringCore(&seed);
}

std::string generateGuidStringCore(unsigned int* seed)
{
    rand_R(seed); // the first values of neighbouring seeds are much alike
    std::string guid;
    for (int i = 0; i < kGuidWords; ++i) {
        std::array<char, 9> word = {}; // 8 digits and the closing zero; no padding
        std::snprintf(word.data(), word.size(), "%x", rand_R(seed));
        guid += word.data();
    }
    return guid;
}

unsigned int generateSeed()
{
    return static_cast<unsigned int>(std::time(nullptr));
}

unsigned int rand_R(unsigned int* seed)
{
    const uint32_t first = nextState(*seed);
    const uint32_t second = nextState(first);
    const uint32_t third = nextState(second);
    *seed = third;

    // The low bits of such a generator repeat soon, so only bits from 16 up are used: 11, 10 and 10 of them.
    uint32_t result = (first >> 16U) & 0x7FFU;
    result = (result << 10U) ^ ((second >> 16U) & 0x3FFU);
    result = (result << 10U) ^ ((third >> 16U) & 0x3FFU);
    return result;
}

} // namespace velk::telemetry
