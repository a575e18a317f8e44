// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Replays kept inputs of the fuzz target "calls" and lets memory end: at each allocation that a call makes in
// turn, once that one alone and once it and all that follow in the same call. The target watches the world
// after the failure, makes the call again, plays on, and destroys everything in the order that the input asks
// for; each input is played in two. Then no block that a call allocated may be left over.
//
//   velk_allocation_sweep {STRIDE DIRECTORY...}...   every STRIDE-th allocation of the inputs in the
//   directories
#include "fuzz/AllocationFaults.h"
#include "fuzz/FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using velk_fuzz::allocationFaults;
using velk_fuzz::AllocationFaults;

namespace
{

long liveBlocks = 0;
long plays = 0;       // unbroken ones
long allocations = 0; // in those

struct Outcome
{
    long allocations;
    long leftOver;
};

Outcome play(const std::string& input, long failAt, bool andAllAfter)
{
    const long before = liveBlocks;
    allocationFaults.failAt = failAt;
    allocationFaults.andAllAfter = andAllAfter;
    allocationFaults.counted = 0;
    velk_fuzz::runInput(input, velk_fuzz::Run::Quiet);
    allocationFaults.failAt = AllocationFaults::kNever;
    return {allocationFaults.counted, liveBlocks - before};
}

std::string inputOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return velk_fuzz::decodeFile(path.string(), {std::istreambuf_iterator<char>(file), {}});
}

void sweep(const std::filesystem::path& path, long stride)
{
    std::string input = inputOf(path);
    if (input.empty()) {
        return;
    }
    for (const char order : {'\0', '\1'}) {
        input.at(0) = order;
        play(input, AllocationFaults::kNever, false); // the library's tables grow
        const Outcome whole = play(input, AllocationFaults::kNever, false);
        velk_fuzz::expect(whole.leftOver == 0, "an input leaves nothing");
        for (const bool andAllAfter : {false, true}) {
            for (long failAt = 1; failAt <= whole.allocations; failAt += stride) {
                const Outcome broken = play(input, failAt, andAllAfter);
                if (broken.leftOver != 0) {
                    std::fprintf(stderr, "%s: %ld blocks are left when allocation %ld fails\n",
                                 path.filename().string().c_str(), broken.leftOver, failAt);
                }
                velk_fuzz::expect(broken.leftOver <= 0, "memory that ends leaves nothing");
            }
        }
        ++plays;
        allocations += whole.allocations;
    }
}

/// Fails unless each function that allocates has failed.
void report()
{
    long failures = 0;
    long allocating = 0;
    for (const auto& [name, account] : allocationFaults.functions) {
        failures += account.failures;
        if (account.allocations > 0) {
            ++allocating;
            std::printf("%-42.*s %6ld failures\n", static_cast<int>(name.size()), name.data(),
                        account.failures);
            velk_fuzz::expect(account.failures > 0, "what allocates fails once at least");
        }
    }
    std::printf("%ld plays, %ld allocations in %ld of %zu functions: %ld failures\n", plays, allocations,
                allocating, allocationFaults.functions.size(), failures);
}

} // namespace

void* operator new(std::size_t size)
{
    if (allocationFaults.isInCall) {
        ++allocationFaults.counted;
        const long at = allocationFaults.counted;
        if (at == allocationFaults.failAt || (allocationFaults.andAllAfter && at > allocationFaults.failAt)) {
            throw std::bad_alloc();
        }
    }
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++liveBlocks;
    return block;
}

void operator delete(void* block) noexcept
{
    liveBlocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("velk_allocation_sweep {STRIDE DIRECTORY...}...\n", stderr);
        return 2;
    }
    long stride = 1;
    for (int i = 1; i < argc; ++i) {
        if (const long number = std::atol(argv[i]); number > 0) {
            stride = number;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            sweep(entry.path(), stride);
        }
    }
    report();
    return 0;
}
