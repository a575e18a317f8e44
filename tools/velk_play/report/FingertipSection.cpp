// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cmath>
#include <set>

#include <fmt/format.h>

#include "host/scene/PatchGeometry.h"
#include "report/Html.h"
#include "report/Plot.h"
#include "report/Sections.h"
#include "report/Shapes.h"

namespace velk_tools
{

namespace
{

constexpr double kWide = 730;
constexpr double kNarrow = 350;
constexpr double kMillimetres = 1000;
constexpr double kLeastTouchView = 20; // mm

/// The patch that a fingertip is about: the one it hovers or presses, else the nearest.
const Patch& patchFor(const ReportData& data, const FingertipView& tip)
{
    const std::vector<Patch>& patches = data.scene.patches;
    if (tip.target >= 0) {
        return patches[static_cast<std::size_t>(tip.target)];
    }
    return *std::min_element(patches.begin(), patches.end(), [&](const Patch& a, const Patch& b) {
        return distanceTo(a, tip.tip) < distanceTo(b, tip.tip);
    });
}

void markPresses(Plot& plot, const ReportData& data, const Fingertip& fingertip,
                 const std::vector<Point>& height)
{
    for (const Transition& change : data.changes) {
        if (change.kind != Kind::Fingertip || change.name != fingertip.name) {
            continue;
        }
        // A fingertip that is lost has no height any more: its release is marked where it was last.
        const bool lost = std::isnan(height[change.frame].y) && change.frame > 0;
        const Point at{change.time, height[change.frame - (lost ? 1 : 0)].y};
        const std::string where = fmt::format("{:.3f} s, {:.1f} mm, {}", at.x, at.y, change.target);
        if (change.to == State::Select) {
            plot.mark(at, Mark::Down, "press", "press: " + where);
        } else if (change.from == State::Select) {
            plot.mark(at, Mark::Up, "release", "release: " + where);
        }
    }
}

std::string heightPlot(const ReportData& data, std::size_t i)
{
    const Fingertip& fingertip = data.scene.fingertips[i];
    const auto height = curveOf(data, [&](const Observation& seen) {
        const FingertipView& tip = seen.fingertips[i];
        return tip.tracked
                   ? (inverseTransform(patchFor(data, tip).pose, tip.tip).z - kTipRadius) * kMillimetres
                   : kGap;
    });
    Range y = rangeOf({height});
    y = {std::min(y.low, -5.0), std::max(y.high, 5.0)};
    const std::string title = fmt::format("{}: height of the skin over the surface at hand", fingertip.name);
    Plot plot({kWide, 250, title, "mm", data.time(), y});
    for (const auto& run : runsOf(data, [i](const Observation& seen) {
             return std::pair(seen.fingertips[i].state, seen.fingertips[i].target);
         })) {
        const State state = stateOf(run.value.first);
        plot.band(run.time, softStyleOf(state),
                  fmt::format("{} {}", nameOf(state), data.scene.patchName(run.value.second)));
    }
    plot.level(0, "surface");
    for (const auto& run :
         runsOf(data, [&](const Observation& seen) { return &patchFor(data, seen.fingertips[i]); })) {
        plot.line(cut(height, {run.time.low, std::nexttoward(run.time.high, 0)}),
                  "line " + colourOf(fingertip));
    }
    plot.legend(softStyleOf(State::Hover), "hover");
    plot.legend(softStyleOf(State::Select), "press");
    markPresses(plot, data, fingertip, height);
    return figure(plot.take());
}

/// The patches that a fingertip was ever at.
std::set<std::size_t> patchesOf(const ReportData& data, std::size_t i)
{
    std::set<std::size_t> patches;
    for (const Observation& seen : data.frames) {
        if (seen.fingertips[i].target >= 0) {
            patches.insert(static_cast<std::size_t>(seen.fingertips[i].target));
        }
    }
    return patches;
}

std::string travelPlot(const ReportData& data, const std::set<std::size_t>& patches)
{
    double most = 0;
    for (const std::size_t p : patches) {
        const float travel = data.scene.patches[p].button.value_or(Button{}).travel;
        most = std::max(most, travel * kMillimetres);
    }
    if (!(most > 0)) {
        return {};
    }
    const Range height{-0.06 * most, 1.1 * most};
    Plot plot({kWide, 150, "Height of the button's cap", "mm", data.time(), height});
    std::size_t colour = 0;
    for (const std::size_t p : patches) {
        if (data.scene.patches[p].button) {
            plot.line(
                curveOf(data, [p](const Observation& seen) { return seen.patches[p].extent * kMillimetres; }),
                fmt::format("line c{}", colour++ % 5), data.scene.patches[p].name);
        }
    }
    return figure(plot.take());
}

/// A square view around points, at least a few millimetres wide.
std::pair<Range, Range> squareAround(const std::vector<Point>& points)
{
    const Range x = rangeOf({points}, 0.12, &Point::x);
    const Range y = rangeOf({points}, 0.12);
    const double half = std::max({x.size(), y.size(), kLeastTouchView}) / 2;
    const double middleX = (x.low + x.high) / 2;
    const double middleY = (y.low + y.high) / 2;
    return {{middleX - half, middleX + half}, {middleY - half, middleY + half}};
}

std::string touchPlot(const ReportData& data, std::size_t i, const std::set<std::size_t>& patches)
{
    const Pose& pose = data.scene.patches[*patches.begin()].pose;
    const auto flat = [&pose](Vec3 point) {
        const Vec3 local = inverseTransform(pose, point) * static_cast<float>(kMillimetres);
        return Point{local.x, local.y};
    };
    std::vector<Point> finger;
    std::vector<Point> touch;
    std::vector<Point> seenPoints;
    for (const Observation& seen : data.frames) {
        const FingertipView& tip = seen.fingertips[i];
        finger.push_back(tip.touch ? flat(tip.tip) : Point{kGap, kGap});
        touch.push_back(tip.touch ? flat(*tip.touch) : Point{kGap, kGap});
        if (tip.touch) {
            seenPoints.insert(seenPoints.end(), {finger.back(), touch.back()});
        }
    }
    if (seenPoints.empty()) {
        return {};
    }
    const auto [x, y] = squareAround(seenPoints);
    const double tall = heightForEqualScale(kNarrow, x, y);
    Plot plot({kNarrow, tall, "Touch points", "mm", x, y, "along the surface (mm)"});
    for (const std::size_t p : patches) {
        std::vector<Point> outline;
        for (const Vec3 corner : cornersOf(data.scene.patches[p])) {
            outline.push_back(flat(corner));
        }
        plot.polygon(outline, "surface", data.scene.patches[p].name);
    }
    plot.line(finger, "line thin faint grey", "finger");
    plot.line(touch, "line bold " + colourOf(data.scene.fingertips[i]), "touch");
    for (std::size_t f = 0; f < touch.size(); ++f) {
        if (!std::isnan(touch[f].x)) {
            plot.mark(touch[f], Mark::Dot, styleOf(State::Select),
                      fmt::format("{:.3f} s", data.frames[f].time));
        }
    }
    return figure(plot.take());
}

} // namespace

std::string fingertipSection(const ReportData& data)
{
    if (data.scene.fingertips.empty() || data.scene.patches.empty()) {
        return {};
    }
    std::string body;
    for (std::size_t i = 0; i < data.scene.fingertips.size(); ++i) {
        const std::set<std::size_t> patches = patchesOf(data, i);
        const std::string touches = patches.empty() ? std::string() : touchPlot(data, i, patches);
        body += fmt::format("<h3>{}</h3>\n<div class=\"wide\">\n<div>{}{}</div>\n{}</div>\n",
                            escaped(data.scene.fingertips[i].name), heightPlot(data, i),
                            travelPlot(data, patches), touches);
    }
    return section("Fingertips",
                   "A press begins at the first contact of the skin, which is 5 mm ahead of the fingertip, "
                   "and ends 2 mm above the surface, or after a retreat of 20 mm from the deepest point. The "
                   "surface at hand is the one hovered or pressed, else the nearest. The "
                   "touch point stays still while the finger pushes and follows it only in a drag.",
                   body);
}

} // namespace velk_tools
