// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velk_tools
{

struct Point
{
    double x;
    double y;
};

struct Range
{
    double low;
    double high;

    double size() const { return high - low; }
};

enum class Anchor
{
    Start,
    Middle,
    End
};

/// Text made safe for HTML and SVG.
std::string escaped(std::string_view text);

/// A drawing that grows shape by shape. Colours come from the page's style sheet, by class. A title shows
/// when the pointer rests on the shape.
class Svg
{
public:
    Svg(double width, double height, std::string label);

    void rect(double x, double y, double width, double height, std::string_view style,
              std::string_view title = {});
    void line(Point from, Point to, std::string_view style);
    /// Points with a NaN break the line.
    void polyline(const std::vector<Point>& points, std::string_view style);
    void polygon(const std::vector<Point>& points, std::string_view style, std::string_view title = {});
    void circle(Point center, double radius, std::string_view style, std::string_view title = {});
    void text(Point at, Anchor anchor, std::string_view style, std::string_view text);
    /// Opens a part of the drawing that cuts off what lies outside it, with its own origin; end() closes it.
    void beginClipped(double x, double y, double width, double height);
    void end();

    std::string take() const;

private:
    double width_;
    double height_;
    std::string label_;
    std::string body_;
};

} // namespace velk_tools
