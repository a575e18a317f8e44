// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// velk-soak FRAMES: a host that goes on. It plays recorded and computed motion through a scene of everything
// there is. In the second half of each 1000 frames objects are replaced, in hovers and presses too; then all
// is destroyed and made anew. It ends with 1 when an answer makes no sense, or when with nothing alive more
// memory is in use at the end than after a tenth of the frames. GLIBC_TUNABLES=glibc.malloc.tcache_count=0
// must be set: what the C library keeps for the next allocation would count as used.
#include "Rays.h"
#include "Recognizers.h"
#include "Touch.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>

namespace
{

using namespace velk_soak;

constexpr int kReplacements = 4;         // in a frame of a round's second half
constexpr long kHeapGrowth = 16L * 1024; // bytes; a block lost in each round of a million frames is 28 kB
constexpr long kResidentGrowth = 1024;   // kilobytes, asked of long runs only: a short one still warms up
constexpr long kLongRun = 200'000;       // frames

struct Memory
{
    long heap;     // bytes in use
    long resident; // kilobytes
};

Memory measure()
{
    const auto heap = mallinfo2();
    long pages = 0, residentPages = 0;
    std::ifstream("/proc/self/statm") >> pages >> residentPages;
    return {static_cast<long>(heap.uordblks + heap.hblkhd), residentPages * (sysconf(_SC_PAGESIZE) / 1024)};
}

} // namespace

int main(int argc, char** argv)
{
    const long frames = argc > 1 ? std::atol(argv[1]) / (10 * kRound) * 10 * kRound : 0;
    if (frames <= 0) {
        std::fputs("usage: velk-soak FRAMES    a multiple of 10000\n", stderr);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ); // each line as it comes, in files too
    const Motion tapping("tap_110hz.csv");
    const Motion pinching("pinch_57hz.csv");
    const Motion gripping("fist_54hz.csv");

    std::puts("  frames  objects made  bytes in use  resident kB  frames a second of processor time");
    Memory first{}, last{};
    while (frameNumber < frames) {
        const std::clock_t start = std::clock();
        for (const long end = frameNumber + frames / 10; frameNumber < end;) {
            Rays rays;
            Touch touch(tapping);
            Recognizers recognizers(pinching, gripping);
            for (long i = 0; i < kRound; ++i, ++frameNumber) {
                for (int k = 0; i >= kRound / 2 && k < kReplacements; ++k) {
                    const unsigned part = randomBelow(3);
                    part == 0 ? rays.replaceOne() : part == 1 ? touch.replaceOne() : recognizers.replaceOne();
                }
                rays.frame();
                touch.frame();
                recognizers.frame();
            }
        }
        last = measure();
        first = frameNumber == frames / 10 ? last : first;
        std::printf("%8ld %13ld %13ld %12ld %8.0f\n", frameNumber, created, last.heap, last.resident,
                    0.1 * static_cast<double>(frames) * CLOCKS_PER_SEC /
                        static_cast<double>(std::clock() - start));
    }

    for (std::size_t i = 0; i < counts.size(); ++i) {
        std::printf("%s%ld %s", i == 0 ? "" : ", ", counts[i], kNames[i]);
    }
    std::printf("\nheap grew by %ld bytes (at most %ld), resident memory by %ld kB (at most %ld from %ld "
                "frames on)\n",
                last.heap - first.heap, kHeapGrowth, last.resident - first.resident, kResidentGrowth,
                kLongRun);
    check(*std::ranges::min_element(counts) >= frames / 1000,
          "each of these happens at least once in 1000 frames");
    check(last.heap - first.heap <= kHeapGrowth, "the heap stays flat");
    check(frames < kLongRun || last.resident - first.resident <= kResidentGrowth,
          "resident memory stays flat");
    return 0;
}
