// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "report/Plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

constexpr double kLeft = 58;
constexpr double kRight = 14;
constexpr double kTop = 30;
constexpr double kBottom = 38;
constexpr double kLetter = 6.4; // mean width of a letter in the legend's size
constexpr double kTickSpacing = 70;

} // namespace

Plot::Plot(PlotLayout layout)
    : layout_(std::move(layout))
    , plotWidth_(layout_.width - kLeft - kRight)
    , plotHeight_(layout_.height - kTop - kBottom)
    , svg_(layout_.width, layout_.height, layout_.title)
{
    for (Range* range : {&layout_.x, &layout_.y}) {
        if (range->low == range->high) {
            range->high += 1; // a recording of one frame
        }
    }
    drawFrame();
    svg_.beginClipped(kLeft, kTop, plotWidth_, plotHeight_);
}

void Plot::drawFrame()
{
    svg_.rect(kLeft, kTop, plotWidth_, plotHeight_, "area");
    const auto xTicks = ticksFor(layout_.x, plotWidth_ / kTickSpacing);
    const auto yTicks = ticksFor(layout_.y, plotHeight_ / (kTickSpacing * 0.55));
    for (const double tick : xTicks) {
        const double x = kLeft + toPixels({tick, 0}).x;
        svg_.line({x, kTop}, {x, kTop + plotHeight_}, "grid");
        svg_.text({x, kTop + plotHeight_ + 14}, Anchor::Middle, "tick",
                  tickText(tick, xTicks.size() > 1 ? xTicks[1] - xTicks[0] : 1));
    }
    for (const double tick : yTicks) {
        const double y = kTop + toPixels({0, tick}).y;
        svg_.line({kLeft, y}, {kLeft + plotWidth_, y}, "grid");
        svg_.text({kLeft - 7, y + 4}, Anchor::End, "tick",
                  tickText(tick, yTicks.size() > 1 ? yTicks[1] - yTicks[0] : 1));
    }
    svg_.text({kLeft + plotWidth_, layout_.height - 6}, Anchor::End, "label", layout_.xLabel);
    svg_.text({4, 18}, Anchor::Start, "label", layout_.yLabel);
    const double indent =
        layout_.yLabel.empty() ? kLeft : 16 + kLetter * static_cast<double>(layout_.yLabel.size());
    svg_.text({std::max(kLeft, indent), 18}, Anchor::Start, "title", layout_.title);
}

Point Plot::toPixels(Point p) const
{
    return {(p.x - layout_.x.low) / layout_.x.size() * plotWidth_,
            (layout_.y.high - p.y) / layout_.y.size() * plotHeight_};
}

std::vector<Point> Plot::toPixels(const std::vector<Point>& points) const
{
    std::vector<Point> pixels;
    pixels.reserve(points.size());
    for (const Point& p : points) {
        pixels.push_back(toPixels(p));
    }
    return pixels;
}

void Plot::band(Range time, std::string_view style, std::string_view what)
{
    const double from = toPixels({time.low, 0}).x;
    const double width = std::max(toPixels({time.high, 0}).x - from, 0.8);
    svg_.rect(from, 0, width, plotHeight_, style, bandTitle(what, time));
}

void Plot::line(const std::vector<Point>& points, std::string_view style, const std::string& label)
{
    svg_.polyline(toPixels(points), style);
    if (!label.empty()) {
        legend(style, label);
    }
}

void Plot::level(double y, const std::string& label)
{
    const double at = toPixels({0, y}).y;
    svg_.line({0, at}, {plotWidth_, at}, "level");
    svg_.text({plotWidth_ - 4, at > 14 ? at - 4 : at + 12}, Anchor::End, "note", label);
}

void Plot::mark(Point at, Mark shape, std::string_view style, std::string_view title)
{
    const Point p = toPixels(at);
    constexpr double kSize = 5.5;
    if (shape == Mark::Dot) {
        svg_.circle(p, 2.2, style, title);
        return;
    }
    const double tip = shape == Mark::Down ? kSize : -kSize;
    svg_.polygon({{p.x - kSize, p.y - tip}, {p.x + kSize, p.y - tip}, {p.x, p.y + tip}}, style, title);
}

void Plot::polygon(const std::vector<Point>& points, std::string_view style, std::string_view title)
{
    svg_.polygon(toPixels(points), style, title);
}

void Plot::text(Point at, Anchor anchor, std::string_view style, std::string_view text)
{
    svg_.text(toPixels(at), anchor, style, text);
}

void Plot::legend(std::string_view style, const std::string& label)
{
    legend_.emplace_back(style, label);
}

void Plot::drawLegend()
{
    double x = layout_.width - kRight;
    for (auto entry = legend_.rbegin(); entry != legend_.rend(); ++entry) {
        const auto& [style, label] = *entry;
        x -= kLetter * static_cast<double>(label.size());
        svg_.text({x, 18}, Anchor::Start, "note", label);
        x -= 22;
        if (style.starts_with("line")) {
            svg_.line({x, 14}, {x + 16, 14}, style);
        } else {
            svg_.rect(x, 9, 16, 10, style);
        }
        x -= 14;
    }
}

std::string Plot::take()
{
    svg_.end();
    drawLegend();
    return svg_.take();
}

Range rangeOf(const std::vector<std::vector<Point>>& curves, double margin, double Point::*axis)
{
    Range range{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
    for (const std::vector<Point>& curve : curves) {
        for (const Point& point : curve) {
            range.low = std::fmin(range.low, point.*axis); // which passes a gap over
            range.high = std::fmax(range.high, point.*axis);
        }
    }
    if (range.low > range.high) {
        return {0, 1};
    }
    const double extra = range.size() > 0 ? range.size() * margin : 0.5;
    return {range.low - extra, range.high + extra};
}

std::string bandTitle(std::string_view what, Range time)
{
    return fmt::format("{}, {:.3f} s to {:.3f} s", what, time.low, time.high);
}

std::vector<Point> cut(const std::vector<Point>& points, Range x)
{
    std::vector<Point> part;
    std::copy_if(points.begin(), points.end(), std::back_inserter(part),
                 [x](Point p) { return p.x >= x.low && p.x <= x.high; });
    return part;
}

std::vector<double> ticksFor(Range range, double count)
{
    const auto [low, high] = std::minmax(range.low, range.high);
    const double rough = (high - low) / std::max(count, 2.0);
    const double power = std::pow(10, std::floor(std::log10(rough)));
    constexpr std::array<double, 4> kRound{1, 2, 5, 10};
    const double step = power * *std::lower_bound(kRound.begin(), kRound.end() - 1, rough / power);
    std::vector<double> ticks;
    for (double i = std::ceil(low / step); i * step <= high; ++i) {
        ticks.push_back(i * step);
    }
    return ticks;
}

std::string tickText(double value, double step)
{
    const int digits = std::max(0, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
    const std::string text = fmt::format("{:.{}f}", value, digits);
    return text == "-0" || text == "-0.0" || text == "-0.00" ? text.substr(1) : text;
}

double heightForEqualScale(double width, Range x, Range y)
{
    return (width - kLeft - kRight) * std::abs(y.size() / x.size()) + kTop + kBottom;
}

} // namespace velk_tools
