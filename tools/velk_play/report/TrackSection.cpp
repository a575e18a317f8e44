// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>

#include <fmt/format.h>

#include "report/Html.h"
#include "report/Plot.h"
#include "report/Sections.h"

namespace velk_tools
{

namespace
{

constexpr double kWidth = 530;
constexpr double kHeight = 180;
constexpr Range kScores{-0.06, 1.12}; // room around 0 and 1

struct Level
{
    double score;
    const char* name;
};

/// What the library decides by. A pinch starts at a distance, where the score has come up to 1.
constexpr Level kPinchLevels[] = {{1.0, "starts"}};
constexpr Level kPalmLevels[] = {{0.9, "starts above"}, {0.6, "ends below"}};

void markChanges(Plot& plot, const ReportData& data, Kind kind, const std::string& name,
                 const std::vector<Point>& curve)
{
    for (const Transition& change : data.changes) {
        if (change.kind == kind && change.name == name) {
            const bool starts = isStart(change);
            plot.mark(curve[change.frame], starts ? Mark::Down : Mark::Up, starts ? "press" : "release",
                      fmt::format("{} at {:.3f} s", nameOf(change.to), change.time));
        }
    }
}

template <typename Levels>
std::string gripPlots(const ReportData& data, Kind kind, const std::vector<GripTrack>& tracks,
                      std::vector<GripView> Observation::*views, const Levels& levels)
{
    std::string figures;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t finger : tracks[i].fingers) {
            const std::string name = fingerName(tracks[i], finger);
            const auto score = curveOf(data, [&](const Observation& seen) -> double {
                return (seen.*views)[i].tracked ? (seen.*views)[i].scores[finger] : kGap;
            });
            const std::string title = fmt::format("{}, {}", name, nameOf(kind));
            Plot plot({kWidth, kHeight, title, "score", data.time(), kScores});
            for (const auto& run : runsOf(
                     data, [&](const Observation& seen) -> bool { return (seen.*views)[i].holds[finger]; })) {
                const State state = stateOf(kind, run.value);
                plot.band(run.time, softStyleOf(state), nameOf(state));
            }
            for (const Level& level : levels) {
                plot.level(level.score, level.name);
            }
            plot.line(score, fmt::format("line c{}", finger));
            plot.legend(softStyleOf(heldState(kind)), std::string(nameOf(heldState(kind))));
            markChanges(plot, data, kind, name, score);
            figures += figure(plot.take());
        }
    }
    return figures.empty() ? figures : "<div class=\"row\">\n" + figures + "</div>\n";
}

std::string directionPlots(const ReportData& data)
{
    std::string figures;
    for (std::size_t i = 0; i < data.scene.directions.size(); ++i) {
        const DirectionTrack& track = data.scene.directions[i];
        const auto angle = curveOf(data, [i](const Observation& seen) {
            return seen.directions[i].tracked ? static_cast<double>(seen.directions[i].angle) : kGap;
        });
        const double top = std::max({rangeOf({angle}).high, static_cast<double>(track.farAngle) * 1.1, 10.0});
        const Range degrees{0, top};
        Plot plot({1080, 230, track.name + ": angle off the reference", "degrees", data.time(), degrees});
        for (const auto& run : runsOf(data, [i](const Observation& seen) {
                 return std::pair(seen.directions[i].active, seen.directions[i].alignment);
             })) {
            plot.band(run.time, softStyleOf(stateOf(Kind::Direction, run.value.first)),
                      alignmentName(run.value.second));
        }
        plot.level(track.middleAngle, "middle from here");
        plot.level(track.farAngle, "far from here");
        plot.line(angle, "line c1");
        plot.legend(softStyleOf(State::Recognised),
                    fmt::format("{}: {}", nameOf(State::Recognised), alignmentName(track.wanted)));
        markChanges(plot, data, Kind::Direction, track.name, angle);
        figures += figure(plot.take());
    }
    return figures;
}

} // namespace

std::string trackSection(const ReportData& data)
{
    std::string html;
    if (const std::string pinches =
            gripPlots(data, Kind::Pinch, data.scene.pinches, &Observation::pinches, kPinchLevels);
        !pinches.empty()) {
        html += section("Pinches",
                        "A finger's score is 1 at the distance at which its pinch starts: 16 mm from the "
                        "thumb in good view, 20 mm in poor view, 30 mm for the thumb itself. A pinch ends "
                        "16, 40 and 40 mm above its least distance, so well below 1.",
                        pinches);
    }
    if (const std::string grips =
            gripPlots(data, Kind::Palm, data.scene.palms, &Observation::palms, kPalmLevels);
        !grips.empty()) {
        html += section(
            "Palm grips",
            "The score tells how far a finger is curled. The grip starts above 0.9 and ends below 0.6.",
            grips);
    }
    if (const std::string directions = directionPlots(data); !directions.empty()) {
        html +=
            section("Directions",
                    "How far a direction of the hand is off the reference, and when it is the wanted one.",
                    directions);
    }
    return html;
}

} // namespace velk_tools
