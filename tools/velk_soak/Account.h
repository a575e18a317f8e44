// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace velk_soak
{

inline constexpr long kRound = 1000; // frames, after which all is made anew

inline long frameNumber = 0;
inline long created = 0;

/// What a run counts.
enum What
{
    RayHovers,
    RayPresses,
    FingerHovers,
    FingerPresses,
    CapsDown,
    WristsHeld,
    Pinches,
    PalmGrips,
    Recognitions,
    LogMessages
};
inline constexpr std::array<const char*, LogMessages + 1> kNames{"hovers of rays",
                                                                 "presses of rays",
                                                                 "hovers of fingers",
                                                                 "presses of fingers",
                                                                 "frames of a cap down",
                                                                 "frames of a wrist held",
                                                                 "pinches",
                                                                 "palm grips",
                                                                 "directions recognised",
                                                                 "messages"};
inline std::array<long, kNames.size()> counts{};

inline void check(bool holds, const char* what)
{
    if (!holds) {
        std::printf("frame %ld: not so: %s\n", frameNumber, what);
        std::fflush(stdout);
        std::_Exit(EXIT_FAILURE); // at once, without the wait for the usage thread
    }
}

/// The same numbers in every run.
inline unsigned randomBelow(unsigned count)
{
    static uint32_t state = 2463534242;
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return (state >> 8) % count;
}

/// From -1 to 1 and back, smoothly, once in `period` frames.
inline float swing(long period)
{
    const float t = static_cast<float>(frameNumber % period) / static_cast<float>(period);
    const float u = 4 * std::fabs(t - 0.5f) - 1;
    return u * (1.5f - 0.5f * u * u);
}

} // namespace velk_soak
