// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "report/Svg.h"

#include <array>
#include <cmath>
#include <iterator>

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

constexpr std::array<std::string_view, 3> kAnchors{"start", "middle", "end"};

/// The end of an element, with its title if it has one.
std::string closing(std::string_view name, std::string_view title)
{
    if (title.empty()) {
        return "/>\n";
    }
    return fmt::format("><title>{}</title></{}>\n", escaped(title), name);
}

std::string coordinates(const std::vector<Point>& points)
{
    std::string list;
    for (const Point& p : points) {
        fmt::format_to(std::back_inserter(list), "{:.1f},{:.1f} ", p.x, p.y);
    }
    return list;
}

} // namespace

std::string escaped(std::string_view text)
{
    constexpr std::string_view kSpecial = "<>&\"";
    constexpr std::array<std::string_view, 4> kEntities{"&lt;", "&gt;", "&amp;", "&quot;"};
    std::string result;
    for (const char c : text) {
        const std::size_t i = kSpecial.find(c);
        result += i == std::string_view::npos ? std::string_view(&c, 1) : kEntities[i];
    }
    return result;
}

Svg::Svg(double width, double height, std::string label)
    : width_(width)
    , height_(height)
    , label_(std::move(label))
{
}

void Svg::rect(double x, double y, double width, double height, std::string_view style,
               std::string_view title)
{
    body_ += fmt::format("<rect x=\"{:.1f}\" y=\"{:.1f}\" width=\"{:.1f}\" height=\"{:.1f}\" class=\"{}\"{}",
                         x, y, width, height, style, closing("rect", title));
}

void Svg::line(Point from, Point to, std::string_view style)
{
    body_ += fmt::format("<line x1=\"{:.1f}\" y1=\"{:.1f}\" x2=\"{:.1f}\" y2=\"{:.1f}\" class=\"{}\"/>\n",
                         from.x, from.y, to.x, to.y, style);
}

void Svg::polyline(const std::vector<Point>& points, std::string_view style)
{
    std::vector<Point> run;
    const auto flush = [&] {
        if (run.size() > 1) {
            body_ += fmt::format("<polyline points=\"{}\" class=\"{}\"/>\n", coordinates(run), style);
        }
        run.clear();
    };
    for (const Point& p : points) {
        if (std::isnan(p.x) || std::isnan(p.y)) {
            flush();
        } else {
            run.push_back(p);
        }
    }
    flush();
}

void Svg::polygon(const std::vector<Point>& points, std::string_view style, std::string_view title)
{
    body_ += fmt::format("<polygon points=\"{}\" class=\"{}\"{}", coordinates(points), style,
                         closing("polygon", title));
}

void Svg::circle(Point center, double radius, std::string_view style, std::string_view title)
{
    body_ += fmt::format("<circle cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"{:.1f}\" class=\"{}\"{}", center.x,
                         center.y, radius, style, closing("circle", title));
}

void Svg::text(Point at, Anchor anchor, std::string_view style, std::string_view text)
{
    body_ += fmt::format("<text x=\"{:.1f}\" y=\"{:.1f}\" text-anchor=\"{}\" class=\"{}\">{}</text>\n", at.x,
                         at.y, kAnchors[static_cast<std::size_t>(anchor)], style, escaped(text));
}

void Svg::beginClipped(double x, double y, double width, double height)
{
    body_ += fmt::format("<svg x=\"{:.1f}\" y=\"{:.1f}\" width=\"{:.1f}\" height=\"{:.1f}\">\n", x, y, width,
                         height);
}

void Svg::end()
{
    body_ += "</svg>\n";
}

std::string Svg::take() const
{
    return fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {:.0f} {:.0f}\" role=\"img\" "
                       "aria-label=\"{}\">\n{}</svg>\n",
                       width_, height_, escaped(label_), body_);
}

} // namespace velk_tools
