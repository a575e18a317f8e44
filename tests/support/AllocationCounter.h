// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

// Replaces the program's allocation functions by counting ones: include it in one source of a program only.
// They are not inlined, since the compiler would then take the pair of malloc and free for a mismatch.

namespace velk::test
{

inline long allocations = 0;

} // namespace velk::test

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++velk::test::allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
