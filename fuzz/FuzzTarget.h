// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What each fuzz target defines, for libFuzzer and for the replay of kept inputs.
namespace velk_fuzz
{

enum class Run
{
    Quiet,
    /// Prints the input as people can read it.
    Echo,
    /// With the plain reference in place of what is made fast, where there is one.
    Reference
};

/// Runs one input and ends the process when it breaks a rule. The result digests all that was observed: the
/// same input must give the same again, by the reference as well.
uint64_t runInput(std::string_view bytes, Run run);

/// The input that a file holds. Those whose names end in ".calls" hold what Run::Echo prints.
std::string decodeFile(const std::string& name, std::string content);

inline void expect(bool holds, const char* rule)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", rule);
        std::abort();
    }
}

} // namespace velk_fuzz
