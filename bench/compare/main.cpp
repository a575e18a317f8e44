// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The library's whole frames beside its plain scan, Embree's and Bullet's bare queries, in turn, in one
// process.
#include "Bars.h"
#include "Jobs.h"

#include "host/Files.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace
{

using namespace velk::compare;

struct Options
{
    std::string baseline;
    std::string check;
    std::string write;
    std::string only;
    bool quick = false;
};

void parse(Options& options, int argc, char** argv)
{
    CLI::App app("Measures the library beside others");
    app.add_option("--baseline", options.baseline,
                   "Another build of the shared library, measured in the same rounds");
    app.add_option("--check", options.check, "Kept figures: fails if a ratio became 1.3 times as large");
    app.add_option("--write", options.write, "Where to write the figures, one a line");
    app.add_option("--only", options.only, "Only jobs whose name contains this");
    app.add_flag("--quick", options.quick, "A short run, of at most 1000 surfaces");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::exit(app.exit(error));
    }
}

/// Both runs of a job say that it became slower, or it did not.
std::vector<std::string> checked(const Plan& plan, const Result& first, const std::string& kept,
                                 double seconds)
{
    return slower(first, kept).empty() ? std::vector<std::string>()
                                       : slower(measure(plan.make(), 3.0 * seconds), kept);
}

int run(const Options& options)
{
    // Hosts have threads. Until a process starts its first one, shared pointers count without atomic steps.
    std::thread([] {}).detach();
    const Libraries libraries{
        Library(VELK_LIBRARY), Library(VELK_SCAN_ALL), Library(VELK_LIBRARY), Library(VELK_LIBRARY),
        options.baseline.empty() ? nullptr : std::make_unique<const Library>(options.baseline)};
    const std::string kept = options.check.empty() ? "" : velk_tools::readTextFile(options.check);
    const int largest = options.quick ? 1000 : 100000;
    const double seconds = options.quick ? 0.15 : 1.0;
    std::vector<Result> results;
    std::vector<std::string> slow;
    for (const Plan& plan : allPlans(libraries, largest)) {
        if (plan.name.find(options.only) == std::string::npos) {
            continue;
        }
        fmt::print(stderr, "\r\033[K{}", plan.name);
        results.push_back(measure(plan.make(), seconds));
        const auto found = checked(plan, results.back(), kept, seconds);
        slow.insert(slow.end(), found.begin(), found.end());
    }
    for (int count = 1000; count <= largest; count *= 10) {
        if (fmt::format("worst update {}", count).find(options.only) != std::string::npos) {
            results.push_back(worstUpdate(libraries, count, options.quick ? 3 : 7));
        }
    }
    fmt::print(stderr, "\r\033[K");
    fmt::print("{}\n{}", tableOf(results), barsOf(results));
    if (!options.write.empty()) {
        velk_tools::OutputFile file(options.write);
        file.write(linesOf(results));
        file.close();
        file.keep();
    }
    for (const std::string& line : slow) {
        fmt::print("slower: {}\n", line);
    }
    return slow.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    parse(options, argc, argv);
    int status = 2;
    try {
        status = run(options);
    } catch (const std::exception& error) {
        fmt::print(stderr, "velk-compare: {}\n", error.what());
    }
    std::fflush(nullptr);
    _exit(status); // the library's counting would take 10 seconds to end
}
