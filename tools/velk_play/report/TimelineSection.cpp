// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <fmt/format.h>

#include "report/Html.h"
#include "report/Plot.h"
#include "report/Sections.h"

namespace velk_tools
{

namespace
{

constexpr double kWidth = 1080;
constexpr double kLabels = 170;
constexpr double kRight = 14;
constexpr double kTop = 30;
constexpr double kRow = 24;
constexpr double kBar = 16;
constexpr double kBottom = 38;

struct Band
{
    Range time;
    std::string_view style;
    std::string title;
};

struct Lane
{
    std::string name;
    std::vector<Band> bands;
};

std::vector<Lane> lanesOf(const ReportData& data)
{
    std::vector<Lane> lanes;
    for (const Watched& who : data.watched) {
        Lane& lane = lanes.emplace_back(Lane{fmt::format("{} {}", nameOf(who.kind), who.name), {}});
        for (const auto& run : runsOf(data, who.doing)) {
            const auto [seen, index] = run.value;
            const State state = seen == State::Open ? State::Off : seen; // one word for all that doesn't hold
            const std::string target = targetName(data.scene, who.kind, index);
            const std::string what =
                target.empty() ? std::string(nameOf(state)) : fmt::format("{} on {}", nameOf(state), target);
            lane.bands.push_back({run.time, styleOf(state), bandTitle(what, run.time)});
        }
    }
    return lanes;
}

void drawLegend(Svg& svg)
{
    double x = kLabels;
    for (const auto& [state, name] :
         {std::pair(State::Normal, "Normal, or off"), std::pair(State::Hover, "Hover"),
          std::pair(State::Select, "Select, or holding")}) {
        svg.rect(x, 8, 16, 11, styleOf(state));
        svg.text({x + 22, 18}, Anchor::Start, "note", name);
        x += 140;
    }
}

std::string drawLanes(const ReportData& data, const std::vector<Lane>& lanes)
{
    const double height = kTop + kRow * static_cast<double>(lanes.size()) + kBottom;
    const Range time = data.time();
    const double scale = (kWidth - kLabels - kRight) / time.size();
    const auto pixel = [&](double t) { return kLabels + (t - time.low) * scale; };

    Svg svg(kWidth, height, "States over time");
    drawLegend(svg);
    const auto ticks = ticksFor(time, 12);
    for (const double tick : ticks) {
        svg.line({pixel(tick), kTop}, {pixel(tick), height - kBottom + 4}, "grid");
        svg.text({pixel(tick), height - kBottom + 18}, Anchor::Middle, "tick",
                 tickText(tick, ticks.size() > 1 ? ticks[1] - ticks[0] : 1));
    }
    for (std::size_t i = 0; i < lanes.size(); ++i) {
        const double y = kTop + kRow * static_cast<double>(i) + (kRow - kBar) / 2;
        svg.text({kLabels - 8, y + 12}, Anchor::End, "name", lanes[i].name);
        for (const Band& band : lanes[i].bands) {
            svg.rect(pixel(band.time.low), y, std::max(band.time.size() * scale, 0.8), kBar, band.style,
                     band.title);
        }
    }
    svg.text({kWidth - kRight, height - 4}, Anchor::End, "label", "time (s)");
    return svg.take();
}

} // namespace

std::string timelineSection(const ReportData& data)
{
    const std::vector<Lane> lanes = lanesOf(data);
    if (lanes.empty() || !(data.time().size() > 0)) {
        return {};
    }
    return section(
        "Timeline",
        "What each of them does, and when. Rest the pointer on a band for its times and its target.",
        figure(drawLanes(data, lanes)));
}

} // namespace velk_tools
