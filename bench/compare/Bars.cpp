// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Bars.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <string_view>
#include <utility>

namespace velk::compare
{

namespace
{

constexpr double kMuchSlower = 1.3;
constexpr std::array kColumns{"velk",  "scan", "Embree",  "rebuilt", "Bullet",
                              "empty", "old",  "at 1000", "median"};

enum class Measure
{
    Ratio,     ///< The library's whole frame to the other's.
    LessEmpty, ///< Its frame less the empty one.
    Nanoseconds
};

struct Bar
{
    std::string job;
    std::string other;
    Measure measure;
    double atMost;
};

const Figure* find(const std::vector<Result>& results, const std::string& job, std::string_view contestant)
{
    for (const Result& result : results) {
        for (const Figure& figure : result.figures) {
            if (result.name == job && figure.contestant == contestant) {
                return &figure;
            }
        }
    }
    return nullptr;
}

std::vector<Bar> allBars()
{
    std::vector<Bar> bars;
    constexpr std::array<std::pair<int, double>, 5> kRay{
        {{1, 2.4}, {10, 1.4}, {100, 3.0}, {1000, 4.0}, {10000, 4.0}}};
    for (const auto& [count, atMost] : kRay) {
        const std::string job = fmt::format("ray {}", count);
        bars.push_back({job, "Embree", Measure::Ratio, atMost});
        bars.push_back({job, "Embree", Measure::LessEmpty, 1.2});
    }
    for (const char* other : {"Embree", "rebuilt"}) {
        bars.push_back({"ray, a tenth moves 1000", other, Measure::Ratio, 0.5});
    }
    bars.push_back({"ray, a tenth moves 1000", "Bullet", Measure::Ratio, 1.0});
    for (const char* kind : {"hover", "press"}) {
        for (const int count : {1000, 10000}) {
            const std::string job = fmt::format("{} {}", kind, count);
            bars.push_back({job, "Embree", Measure::Ratio, 3.0});
            bars.push_back({job, "Embree", Measure::LessEmpty, 1.5});
        }
    }
    bars.push_back({"ray, empty 0", "velk", Measure::Nanoseconds, 40.0});
    bars.push_back({"hand filter", "old", Measure::Ratio, 0.33});
    bars.push_back({"pinch", "old", Measure::Ratio, 0.35});
    bars.push_back({"palm", "old", Measure::Ratio, 0.35});
    bars.push_back({"call", "old", Measure::Ratio, 0.25});
    bars.push_back({"call, checked kind", "old", Measure::Ratio, 0.25});
    bars.push_back({"everything 1000", "velk", Measure::Nanoseconds, 8000.0});
    bars.push_back({"everything 10000", "at 1000", Measure::Ratio, 1.3});
    bars.push_back({"create and destroy 100000", "at 1000", Measure::Ratio, 1.5});
    return bars;
}

std::string number(double nanoseconds)
{
    return nanoseconds < 1000.0 ? fmt::format("{:.1f}", nanoseconds) : fmt::format("{:.0f}", nanoseconds);
}

} // namespace

std::string tableOf(const std::vector<Result>& results)
{
    std::string table = fmt::format("{:<29}", "nanoseconds a frame");
    for (const char* column : kColumns) {
        table += fmt::format("{:>10}", column);
    }
    std::string agreements;
    for (const Result& result : results) {
        table += fmt::format("\n{:<29}", result.name);
        for (const char* column : kColumns) {
            const Figure* figure = find(results, result.name, column);
            table += fmt::format("{:>10}", figure == nullptr ? "" : number(figure->nanoseconds));
        }
        for (const Figure& figure : result.figures) {
            if (figure.agreement < 1.0) {
                agreements += fmt::format("\n{:<29}{}: {:.2f}%", result.name, figure.contestant,
                                          100.0 * figure.agreement);
            }
        }
    }
    return table + "\n" +
           (agreements.empty() ? "" : "\nof the library's answers others give:" + agreements + "\n");
}

std::string barsOf(const std::vector<Result>& results)
{
    std::string text = fmt::format("{:<29}{:<32}{:>9}{:>9}\n", "bar", "", "at most", "is");
    for (const Bar& bar : allBars()) {
        const Figure* figure = find(results, bar.job, bar.other);
        if (figure == nullptr) {
            continue;
        }
        const double is = bar.measure == Measure::Ratio       ? figure->ratio
                          : bar.measure == Measure::LessEmpty ? figure->lessEmpty
                                                              : figure->nanoseconds;
        const std::string what = bar.measure == Measure::Ratio       ? "times " + bar.other
                                 : bar.measure == Measure::LessEmpty ? "less the empty, times " + bar.other
                                                                     : "nanoseconds";
        text += fmt::format("{:<29}{:<32}{:>9.2f}{:>9.2f}{}\n", bar.job, what, bar.atMost, is,
                            is > bar.atMost ? "  missed" : "");
    }
    return text;
}

std::string linesOf(const std::vector<Result>& results)
{
    std::string lines;
    for (const Result& result : results) {
        for (const Figure& figure : result.figures) {
            lines += fmt::format("{}\t{}\t{:.1f}\t{:.4f}\n", result.name, figure.contestant,
                                 figure.nanoseconds, figure.ratio);
        }
    }
    return lines;
}

std::vector<std::string> slower(const Result& result, const std::string& kept)
{
    std::map<std::pair<std::string, std::string>, double> before;
    std::istringstream lines(kept);
    std::string job;
    std::string contestant;
    std::string nanoseconds;
    std::string ratio;
    while (std::getline(lines, job, '\t') && std::getline(lines, contestant, '\t') &&
           std::getline(lines, nanoseconds, '\t') && std::getline(lines, ratio)) {
        before[{job, contestant}] = std::stod(ratio);
    }
    std::vector<std::string> found;
    for (const Figure& figure : result.figures) {
        const auto was = before.find({result.name, figure.contestant});
        if (figure.contestant != "old" && was != before.end() && figure.ratio > kMuchSlower * was->second) {
            found.push_back(fmt::format("{}: {:.2f} times {}, kept is {:.2f}", result.name, figure.ratio,
                                        figure.contestant, was->second));
        }
    }
    return found;
}

} // namespace velk::compare
