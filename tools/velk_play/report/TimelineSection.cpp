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

/// The bands of one of those that are watched, `y` being their upper edge.
void drawBands(Svg& svg, const ReportData& data, const Watched& who, double scale, double y)
{
    for (const auto& [time, doing] : runsOf(data, who.doing)) {
        // One word for all that doesn't hold.
        const State state = doing.state == State::Open ? State::Off : doing.state;
        std::string what(nameOf(state));
        if (const std::string target = targetName(data.scene, who.kind, doing.target); !target.empty()) {
            what += " on " + target;
        }
        svg.rect(kLabels + (time.low - data.time().low) * scale, y, std::max(time.size() * scale, 0.8), kBar,
                 styleOf(state), bandTitle(what, time));
    }
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

std::string drawLanes(const ReportData& data)
{
    const double height = kTop + kRow * static_cast<double>(data.watched.size()) + kBottom;
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
    double y = kTop + (kRow - kBar) / 2;
    for (const Watched& who : data.watched) {
        svg.text({kLabels - 8, y + 12}, Anchor::End, "name",
                 fmt::format("{} {}", nameOf(who.kind), who.name));
        drawBands(svg, data, who, scale, y);
        y += kRow;
    }
    svg.text({kWidth - kRight, height - 4}, Anchor::End, "label", "time (s)");
    return svg.take();
}

} // namespace

std::string timelineSection(const ReportData& data)
{
    if (data.watched.empty() || !(data.time().size() > 0)) {
        return {};
    }
    return section(
        "Timeline",
        "What each of them does, and when. Rest the pointer on a band for its times and its target.",
        figure(drawLanes(data)));
}

} // namespace velk_tools
