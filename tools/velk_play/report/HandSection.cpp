// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cmath>
#include <functional>

#include <fmt/format.h>

#include "host/scene/PatchGeometry.h"
#include "report/Html.h"
#include "report/Plot.h"
#include "report/Sections.h"

namespace velk_tools
{

namespace
{

constexpr double kWidth = 1080;
constexpr double kHalfWidth = 530;
constexpr double kHeight = 200;
constexpr double kMillimetres = 1000;
constexpr double kLongRecording = 6; // seconds, from which on the plots have a close-up
constexpr double kCloseUp = 1.5;     // seconds

using HandOf = velk_HandData HandView::*;

/// A number that is read off a hand, such as how far a joint has turned.
struct Signal
{
    std::string name;
    std::string unit;
    std::function<double(const velk_HandData&)> read;
};

Signal turnOf(std::string name, Quat start, std::function<Quat(const velk_HandData&)> rotation)
{
    return {std::move(name), "degrees", [start, rotation = std::move(rotation)](const velk_HandData& hand) {
                return static_cast<double>(angleBetween(start, rotation(hand)));
            }};
}

std::vector<Signal> signalsOf(const HandChain& chain, const velk_HandData& first)
{
    std::vector<Signal> signals;
    for (const auto& [name, axis] :
         {std::pair("x", &Vec3::x), std::pair("y", &Vec3::y), std::pair("z", &Vec3::z)}) {
        signals.push_back({fmt::format("root {}", name), "mm", [axis = axis](const velk_HandData& hand) {
                               return static_cast<double>(hand.rootPose.position.*axis) * kMillimetres;
                           }});
    }
    signals.push_back(turnOf("root, turned", first.rootPose.orientation,
                             [](const velk_HandData& hand) { return hand.rootPose.orientation; }));
    for (const std::size_t joint : chain.joints) {
        signals.push_back(turnOf(fmt::format("{}, turned", kJointNames[joint]), first.joints[joint],
                                 [joint](const velk_HandData& hand) { return hand.joints[joint]; }));
    }
    return signals;
}

std::vector<Point> curve(const ReportData& data, std::size_t i, HandOf which, const Signal& signal)
{
    return curveOf(data, [&](const Observation& seen) {
        return seen.hands[i].tracked ? signal.read(seen.hands[i].*which) : kGap;
    });
}

double meanStep(const std::vector<Point>& points)
{
    double sum = 0;
    int count = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double step = std::abs(points[i].y - points[i - 1].y);
        if (std::isnan(step)) {
            continue;
        }
        sum += step;
        ++count;
    }
    return count > 0 ? sum / count : 0;
}

/// The largest distance between two curves, and where it is.
Point largestGap(const std::vector<Point>& a, const std::vector<Point>& b)
{
    Point largest{0, 0};
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double gap = std::abs(a[i].y - b[i].y);
        if (gap > largest.y) {
            largest = {a[i].x, gap};
        }
    }
    return largest;
}

std::string pairPlot(const std::string& title, const std::string& unit, Range time, double width,
                     const std::vector<Point>& raw, const std::vector<Point>& filtered)
{
    const auto rawPart = cut(raw, time);
    const auto filteredPart = cut(filtered, time);
    Plot plot({width, kHeight, title, unit, time, rangeOf({rawPart, filteredPart})});
    plot.line(rawPart, "line thin grey", "recorded");
    plot.line(filteredPart, "line c1", "filtered");
    return figure(plot.take());
}

std::string filterPart(const ReportData& data, std::size_t i)
{
    std::string plots;
    std::vector<std::vector<std::string>> rows;
    const bool isLong = data.time().size() > kLongRecording;
    const double width = isLong ? kWidth : kHalfWidth;
    const auto tracked = std::find_if(data.frames.begin(), data.frames.end(),
                                      [i](const Observation& seen) { return seen.hands[i].tracked; });
    for (const Signal& signal : signalsOf(data.scene.hands[i], tracked->hands[i].raw)) {
        const auto raw = curve(data, i, &HandView::raw, signal);
        const auto filtered = curve(data, i, &HandView::filtered, signal);
        const double step = meanStep(raw);
        if (!(step > 0)) {
            continue; // a hand that never moves in this way
        }
        const Point gap = largestGap(raw, filtered);
        plots += pairPlot(signal.name, signal.unit, data.time(), width, raw, filtered);
        if (isLong) {
            plots += pairPlot(signal.name + ", close up where the two differ most", signal.unit,
                              {std::max(gap.x - kCloseUp / 2, data.time().low),
                               std::min(gap.x + kCloseUp / 2, data.time().high)},
                              width, raw, filtered);
        }
        rows.push_back({fmt::format("{} ({})", signal.name, signal.unit), fmt::format("{:.3f}", step),
                        fmt::format("{:.3f}", meanStep(filtered)),
                        fmt::format("{:.0f} %", 100 * meanStep(filtered) / step),
                        fmt::format("{:.2f}", gap.y)});
    }
    return table({"Signal", "mean step a frame, recorded", "filtered", "of it left", "largest distance"},
                 rows) +
           (isLong ? plots : "<div class=\"row\">\n" + plots + "</div>\n");
}

std::string pressPlot(const char* title, Range time, const std::vector<Run<VelkInteractorState>>& states,
                      const std::vector<Point>& real, const std::vector<Point>& drawn)
{
    Plot plot({kWidth, 230, title, "mm", time, rangeOf({real, drawn})});
    for (const auto& run : states) {
        plot.band(run.time, softStyleOf(stateOf(run.value)), nameOf(stateOf(run.value)));
    }
    plot.level(0, "surface");
    plot.line(real, "line thin grey", "recorded");
    plot.line(drawn, "line c3", "drawn");
    plot.legend(softStyleOf(State::Select), "press");
    return figure(plot.take());
}

/// What the drawn hand does while its finger presses: it stays on the surface.
std::string limiterPart(const ReportData& data, std::size_t i)
{
    const std::optional<std::size_t> finger = data.scene.hands[i].limiter;
    if (!finger) {
        return {};
    }
    const auto pressed = std::find_if(data.frames.begin(), data.frames.end(), [&](const Observation& seen) {
        return seen.fingertips[*finger].touch.has_value();
    });
    if (pressed == data.frames.end()) {
        return "<p>The limiter's fingertip presses nothing in this recording.</p>\n";
    }
    const Pose& pose = data.scene.patches[static_cast<std::size_t>(pressed->fingertips[*finger].target)].pose;
    const auto height = [&pose](Vec3 point) { return inverseTransform(pose, point).z * kMillimetres; };
    const auto wrist = [&](HandOf which) {
        return curveOf(data, [&](const Observation& seen) {
            return seen.hands[i].tracked ? height((seen.hands[i].*which).rootPose.position) : kGap;
        });
    };
    const auto raw = wrist(&HandView::raw);
    const auto shown = wrist(&HandView::shown);
    std::vector<Point> tip;
    std::vector<Point> shownTip;
    for (std::size_t f = 0; f < data.frames.size(); ++f) {
        const FingertipView& view = data.frames[f].fingertips[*finger];
        const double skin = view.tracked ? height(view.tip) - kTipRadius * kMillimetres : kGap;
        tip.push_back({data.frames[f].time, skin});
        shownTip.push_back({data.frames[f].time, skin + shown[f].y - raw[f].y});
    }
    const auto states = runsOf(data, [&](const Observation& seen) { return seen.fingertips[*finger].state; });
    const std::string plots =
        pressPlot("Fingertip's skin over the surface", data.time(), states, tip, shownTip) +
        pressPlot("Wrist over the surface", data.time(), states, raw, shown);
    const double deepest =
        std::min_element(tip.begin(), tip.end(), [](Point a, Point b) { return a.y < b.y; })->y;
    return fmt::format("<p>The recorded fingertip goes {:.1f} mm under the surface. While it presses, the "
                       "drawn hand stays where its fingertip touches.</p>\n",
                       -deepest) +
           plots;
}

} // namespace

std::string handSection(const ReportData& data)
{
    std::string body;
    for (std::size_t i = 0; i < data.scene.hands.size(); ++i) {
        body += fmt::format("<h3>{} hand</h3>\n", nameOf(data.scene.hands[i].side)) + limiterPart(data, i) +
                filterPart(data, i);
    }
    if (body.empty()) {
        return {};
    }
    return section("Hand",
                   "The recorded hand goes through the one euro filter, which takes out jitter when the hand "
                   "is slow and follows when it is fast, and then through the synthetic hand, which a "
                   "limiter holds at a surface. Turns are measured from the first frame.",
                   body);
}

} // namespace velk_tools
