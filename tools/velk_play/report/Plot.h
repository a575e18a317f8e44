// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <limits>
#include <string>
#include <vector>

#include "report/Svg.h"

namespace velk_tools
{

inline constexpr double kGap = std::numeric_limits<double>::quiet_NaN(); ///< A point where nothing is known.

enum class Mark
{
    Down,
    Up,
    Dot
};

struct PlotLayout
{
    double width;
    double height;
    std::string title;
    std::string yLabel;
    Range x;
    Range y;
    std::string xLabel = "time (s)";
};

/// A chart with labelled axes, a grid and a legend. What is added later lies on top.
class Plot
{
public:
    explicit Plot(PlotLayout layout);

    /// A vertical band behind the lines, for a stretch of time in which something holds.
    void band(Range time, std::string_view style, std::string_view what);
    /// A line that the legend names, unless label is empty.
    void line(const std::vector<Point>& points, std::string_view style, const std::string& label = {});
    /// A horizontal line with its name written on it.
    void level(double y, const std::string& label);
    void mark(Point at, Mark shape, std::string_view style, std::string_view title);
    void polygon(const std::vector<Point>& points, std::string_view style, std::string_view title);
    void text(Point at, Anchor anchor, std::string_view style, std::string_view text);
    /// A legend entry: a swatch of this style.
    void legend(std::string_view style, const std::string& label);

    std::string take();

private:
    Point toPixels(Point p) const;
    std::vector<Point> toPixels(const std::vector<Point>& points) const;
    void drawFrame();
    void drawLegend();

    PlotLayout layout_;
    double plotWidth_;
    double plotHeight_;
    Svg svg_;
    std::vector<std::pair<std::string, std::string>> legend_;
};

/// The range of curves' heights, or along another axis, a little widened. Gaps don't count; nothing gives 0
/// to 1.
Range rangeOf(const std::vector<std::vector<Point>>& curves, double margin = 0.06,
              double Point::*axis = &Point::y);

/// What holds, and from when to when.
std::string bandTitle(std::string_view what, Range time);

/// The part of a curve within a stretch of x.
std::vector<Point> cut(const std::vector<Point>& points, Range x);

/// Round numbers over a range, about count of them.
std::vector<double> ticksFor(Range range, double count);

/// As few digits as tell the ticks apart.
std::string tickText(double value, double step);

/// The size of a view of this width whose two axes have the same scale.
double heightForEqualScale(double width, Range x, Range y);

} // namespace velk_tools
