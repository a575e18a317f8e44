// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tune/TuneOutput.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "report/Html.h"
#include "report/Plot.h"

namespace velk_tools
{

namespace
{

constexpr double kMilliseconds = 1000;

using Cells = std::vector<std::string>;

std::string shortNameOf(const std::string& path)
{
    return path.substr(path.rfind('.') + 1);
}

// The last key tells them apart, if each has another one.
Cells namesOf(const std::vector<Variation>& variations)
{
    Cells names;
    for (const Variation& variation : variations) {
        names.push_back(shortNameOf(variation.path));
    }
    if (std::set<std::string>(names.begin(), names.end()).size() < names.size()) {
        std::transform(variations.begin(), variations.end(), names.begin(),
                       [](const Variation& variation) { return variation.path; });
    }
    return names;
}

Cells headOf(const Tuning& tuning)
{
    Cells head{""};
    const Cells names = namesOf(tuning.variations);
    head.insert(head.end(), names.begin(), names.end());
    if (tuning.markCount > 0) {
        head.insert(head.end(), {"hits", "misses", "wrong", "doubles", "extra", "delay (ms)"});
    } else {
        head.emplace_back("starts");
    }
    if (tuning.trials.front().smoothness) {
        head.insert(head.end(), {"jitter (deg)", "of recorded", "lag (ms)"});
    }
    return head;
}

Cells rowOf(const Tuning& tuning, std::size_t index)
{
    const Trial& trial = tuning.trials[index];
    Cells row{index == tuning.best ? "*" : ""};
    for (const double value : trial.values) {
        row.push_back(fmt::format("{:.6g}", value));
    }
    if (trial.judgement) {
        const Judgement& judged = *trial.judgement;
        for (const std::size_t count :
             {judged.hits, judged.misses, judged.wrong, judged.doubles, judged.extra}) {
            row.push_back(fmt::format("{}", count));
        }
        row.push_back(judged.hits > 0 ? fmt::format("{:+.0f}", judged.meanDelay * kMilliseconds) : "-");
    } else {
        row.push_back(fmt::format("{}", trial.starts));
    }
    if (trial.smoothness) {
        const Smoothness& smooth = *trial.smoothness;
        row.push_back(fmt::format("{:.3f}", smooth.jitter));
        row.push_back(smooth.recordedJitter > 0
                          ? fmt::format("{:.0f} %", 100 * smooth.jitter / smooth.recordedJitter)
                          : "-");
        row.push_back(fmt::format("{:.0f}", smooth.lag * kMilliseconds));
    }
    return row;
}

std::string settingsOf(const Tuning& tuning, const Trial& trial)
{
    const Cells names = namesOf(tuning.variations);
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += fmt::format("{}{} {:.6g}", i == 0 ? "" : ", ", names[i], trial.values[i]);
    }
    return text;
}

std::string smoothnessPlot(const Tuning& tuning)
{
    std::vector<Point> points;
    for (const Trial& trial : tuning.trials) {
        points.push_back({trial.smoothness->lag * kMilliseconds, trial.smoothness->jitter});
    }
    Plot plot({1080, 360, "What each combination takes out, and what it costs", "jitter (degrees)",
               rangeOf({points}, 0.06, &Point::x), rangeOf({points}), "lag (ms)"});
    for (std::size_t i = 0; i < points.size(); ++i) {
        plot.mark(points[i], Mark::Dot, i == tuning.best ? "press" : "hover",
                  settingsOf(tuning, tuning.trials[i]));
    }
    plot.text(points[tuning.best], Anchor::Start, "small", "best");
    return figure(plot.take());
}

std::string faultsPlot(const Tuning& tuning)
{
    std::vector<Point> faults;
    std::vector<Point> hits;
    for (std::size_t i = 0; i < tuning.trials.size(); ++i) {
        const double x =
            tuning.variations.size() == 1 ? tuning.trials[i].values.front() : static_cast<double>(i);
        faults.push_back({x, static_cast<double>(tuning.trials[i].judgement->faults())});
        hits.push_back({x, static_cast<double>(tuning.trials[i].judgement->hits)});
    }
    Plot plot({1080, 260, fmt::format("Of {} meant", tuning.markCount), "count",
               rangeOf({faults}, 0.02, &Point::x), rangeOf({faults, hits}),
               tuning.variations.size() == 1 ? namesOf(tuning.variations).front() : "combination"});
    plot.line(hits, "line c1", "hits");
    plot.line(faults, "line c3", "misses, wrong, doubles and extra");
    plot.mark(hits[tuning.best], Mark::Dot, "press",
              "best: " + settingsOf(tuning, tuning.trials[tuning.best]));
    return figure(plot.take());
}

} // namespace

void printAsTable(const Tuning& tuning)
{
    fmt::print("{}: {} combinations, recording {}{}\n", tuning.title, tuning.trials.size(), tuning.recording,
               tuning.markCount > 0 ? fmt::format(", {} marks", tuning.markCount) : "");
    std::vector<Cells> rows{headOf(tuning)};
    for (std::size_t i = 0; i < tuning.trials.size(); ++i) {
        rows.push_back(rowOf(tuning, i));
    }
    for (const Cells& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            std::size_t width = 0;
            for (const Cells& other : rows) {
                width = std::max(width, other[column].size());
            }
            line += fmt::format("{}{:>{}}", column == 0 ? "" : "  ", row[column], width);
        }
        fmt::print("{}\n", line);
    }
}

void printAsJson(const Tuning& tuning)
{
    using nlohmann::ordered_json;
    for (std::size_t i = 0; i < tuning.trials.size(); ++i) {
        const Trial& trial = tuning.trials[i];
        ordered_json line;
        for (std::size_t v = 0; v < tuning.variations.size(); ++v) {
            line["settings"][tuning.variations[v].path] = trial.values[v];
        }
        line["starts"] = trial.starts;
        if (trial.judgement) {
            const Judgement& judged = *trial.judgement;
            line["hits"] = judged.hits;
            line["misses"] = judged.misses;
            line["wrong"] = judged.wrong;
            line["doubles"] = judged.doubles;
            line["extra"] = judged.extra;
            line["delay"] = judged.hits > 0 ? ordered_json(judged.meanDelay) : ordered_json();
        }
        if (trial.smoothness) {
            line["recordedJitter"] = trial.smoothness->recordedJitter;
            line["jitter"] = trial.smoothness->jitter;
            line["lag"] = trial.smoothness->lag;
        }
        line["best"] = i == tuning.best;
        fmt::print("{}\n", line.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
    }
}

std::string reportOf(const Tuning& tuning)
{
    std::vector<Cells> rows;
    for (std::size_t i = 0; i < tuning.trials.size(); ++i) {
        rows.push_back(rowOf(tuning, i));
    }
    std::string plots;
    if (tuning.trials.front().smoothness) {
        plots += smoothnessPlot(tuning);
    }
    if (tuning.trials.front().judgement) {
        plots += faultsPlot(tuning);
    }
    return pageBegin("Tuning: " + tuning.title) +
           section("Combinations",
                   fmt::format("The recording {} played with each combination of settings; the best one is "
                               "marked. Point at a dot to see its settings.",
                               escaped(tuning.recording)),
                   plots + table(headOf(tuning), rows)) +
           std::string(kPageEnd);
}

} // namespace velk_tools
