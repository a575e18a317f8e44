// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "report/Html.h"
#include "report/Plot.h"
#include "report/Sections.h"
#include "report/Shapes.h"

namespace velk_tools
{

namespace
{

constexpr double kWidth = 530;
constexpr double kTallest = 620;
constexpr std::size_t kMostHits = 500; // dots for each ray, so that a long recording stays light

struct View
{
    const char* title;
    const char* xLabel;
    const char* yLabel;
    float Vec3::*x;
    float Vec3::*y;
    bool downwards; ///< y grows downwards, as z does when seen from above.

    Point project(Vec3 p) const { return {p.*x, p.*y}; }
};

constexpr View kViews[] = {{"Front, seen along -Z", "x (m)", "y (m)", &Vec3::x, &Vec3::y, false},
                           {"Side, seen along +X", "z (m)", "y (m)", &Vec3::z, &Vec3::y, false},
                           {"From above", "x (m)", "z (m)", &Vec3::x, &Vec3::z, true}};

/// Whether the ray ends on its target. One that selects keeps its target when it points off it, and then runs
/// to its full length.
bool isHit(const ReportData& data, const Observation& seen, std::size_t i)
{
    constexpr float kSameLength = 1e-3f;
    const RayView& ray = seen.rays[i];
    const float size = length(ray.end - ray.origin);
    return ray.tracked && ray.target >= 0 && std::abs(size - data.scene.rays[i].length) > kSameLength;
}

/// Everything that a view has to have room for.
std::vector<Vec3> landmarks(const ReportData& data)
{
    std::vector<Vec3> points;
    const auto add = [&points](const auto& shapes) {
        for (const auto& shape : shapes) {
            const std::vector<Vec3> corners = cornersOf(shape);
            points.insert(points.end(), corners.begin(), corners.end());
        }
    };
    add(data.scene.panels);
    add(data.scene.boxes);
    add(data.scene.patches);
    for (const Observation& seen : data.frames) {
        for (std::size_t i = 0; i < seen.rays.size(); ++i) {
            if (seen.rays[i].tracked) {
                points.push_back(seen.rays[i].origin);
            }
            if (isHit(data, seen, i)) {
                points.push_back(seen.rays[i].end);
            }
        }
        for (const FingertipView& tip : seen.fingertips) {
            if (tip.tracked) {
                points.push_back(tip.tip);
            }
        }
    }
    return points;
}

std::vector<Point> project(const View& view, const std::vector<Vec3>& points)
{
    std::vector<Point> flat(points.size());
    std::transform(points.begin(), points.end(), flat.begin(),
                   [&view](Vec3 point) { return view.project(point); });
    return flat;
}

double cross(Point a, Point b, Point c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// The convex hull, by Andrew's monotone chain: one pass for each of its two sides.
std::vector<Point> outline(std::vector<Point> points)
{
    std::sort(points.begin(), points.end(),
              [](Point a, Point b) { return std::pair(a.x, a.y) < std::pair(b.x, b.y); });
    std::vector<Point> hull;
    for (int pass = 0; pass < 2; ++pass) {
        const std::size_t start = hull.size();
        for (const Point& p : points) {
            while (hull.size() >= start + 2 && cross(hull[hull.size() - 2], hull.back(), p) <= 0) {
                hull.pop_back();
            }
            hull.push_back(p);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return hull;
}

template <typename Shape>
void drawShapes(Plot& plot, const View& view, const std::vector<Shape>& shapes, double letter)
{
    for (const Shape& shape : shapes) {
        const std::vector<Point> corners = outline(project(view, cornersOf(shape)));
        plot.polygon(corners, "surface", shape.name);
        const Range x = {
            corners.front().x,
            std::max_element(corners.begin(), corners.end(), [](Point a, Point b) { return a.x < b.x; })->x};
        const auto [low, high] =
            std::minmax_element(corners.begin(), corners.end(), [](Point a, Point b) { return a.y < b.y; });
        const double below = 1.3 * letter; // from the upper edge to the foot of its name
        if (x.size() > letter * static_cast<double>(shape.name.size()) / 2 &&
            high->y - low->y > 1.5 * letter) {
            plot.text({x.low + letter / 2, view.downwards ? low->y + below : high->y - below}, Anchor::Start,
                      "note", shape.name);
        }
    }
}

void drawRay(Plot& plot, const View& view, const ReportData& data, std::size_t i)
{
    const std::string& name = data.scene.rays[i].name;
    const std::string colour = fmt::format("c{}", (i + 1) % 5);
    std::vector<Point> path;
    for (const Observation& seen : data.frames) {
        if (seen.rays[i].tracked) {
            path.push_back(view.project(seen.rays[i].origin));
        }
    }
    plot.line(path, "line thin faint " + colour, name);
    const std::size_t step = data.frames.size() / kMostHits + 1;
    bool wasSelecting = false;
    for (std::size_t frame = 0; frame < data.frames.size(); ++frame) {
        const RayView& ray = data.frames[frame].rays[i];
        const bool hits = isHit(data, data.frames[frame], i);
        const bool selects = ray.state == VelkInteractorState_Select;
        const std::string title = fmt::format("{}: {} on {}, {:.3f} s", name, nameOf(stateOf(ray.state)),
                                              data.scene.rayTarget(ray.target), data.frames[frame].time);
        if (hits && selects && !wasSelecting) {
            plot.line({view.project(ray.origin), view.project(ray.end)}, "line thin " + colour);
        }
        if (hits && (frame % step == 0 || (selects && !wasSelecting))) {
            plot.mark(view.project(ray.end), Mark::Dot, styleOf(stateOf(ray.state)), title);
        }
        wasSelecting = selects;
    }
}

void drawFingertip(Plot& plot, const View& view, const ReportData& data, std::size_t i)
{
    const Fingertip& fingertip = data.scene.fingertips[i];
    std::vector<Point> path;
    for (const Observation& seen : data.frames) {
        path.push_back(seen.fingertips[i].tracked ? view.project(seen.fingertips[i].tip) : Point{kGap, kGap});
    }
    plot.line(path, "line thin " + colourOf(fingertip), fingertip.name);
    for (const Transition& change : data.changes) {
        if (change.kind == Kind::Fingertip && change.name == fingertip.name && change.to == State::Select) {
            plot.mark(view.project(data.frames[change.frame].fingertips[i].tip), Mark::Down, "press",
                      fmt::format("{} presses {}, {:.3f} s", change.name, change.target, change.time));
        }
    }
}

std::string drawView(const ReportData& data, const View& view, const std::vector<Point>& points)
{
    constexpr double kMargin = 0.06;
    Range x = rangeOf({points}, kMargin, &Point::x);
    Range y = rangeOf({points}, kMargin);
    // A view much taller than wide is widened, so that all views stay about the same size.
    const double missing = (y.size() * kWidth / kTallest - x.size()) / 2;
    if (missing > 0) {
        x = {x.low - missing, x.high + missing};
    }
    if (view.downwards) {
        std::swap(y.low, y.high);
    }
    Plot plot({kWidth, heightForEqualScale(kWidth, x, y), view.title, view.yLabel, x, y, view.xLabel});
    const double letter = x.size() / 40;
    drawShapes(plot, view, data.scene.panels, letter);
    drawShapes(plot, view, data.scene.boxes, letter);
    drawShapes(plot, view, data.scene.patches, letter);
    for (std::size_t i = 0; i < data.scene.rays.size(); ++i) {
        drawRay(plot, view, data, i);
    }
    for (std::size_t i = 0; i < data.scene.fingertips.size(); ++i) {
        drawFingertip(plot, view, data, i);
    }
    return plot.take();
}

/// A row: for how long anything hovered a target and selected it, and how often.
std::vector<std::string> targetRow(const ReportData& data, const std::string& name, Kind kind,
                                   const Seconds& seconds)
{
    const auto selections =
        std::count_if(data.changes.begin(), data.changes.end(), [&](const Transition& change) {
            return change.kind == kind && change.target == name && isStart(change);
        });
    return {name, fmt::format("{:.2f} s", seconds.in[VelkInteractorState_Hover]),
            fmt::format("{:.2f} s", seconds.in[VelkInteractorState_Select]), fmt::format("{}", selections)};
}

/// For how long each target was hovered and selected, added up over all that did.
template <typename View>
std::vector<Seconds> secondsOn(const ReportData& data, std::vector<View> Observation::*views,
                               std::size_t targets)
{
    std::vector<Seconds> seconds(targets);
    for (std::size_t frame = 0; frame < data.frames.size(); ++frame) {
        for (const View& view : data.frames[frame].*views) {
            if (view.target >= 0) {
                seconds[static_cast<std::size_t>(view.target)].add(view.state, data.lengthOf(frame));
            }
        }
    }
    return seconds;
}

std::string targetTable(const ReportData& data)
{
    const Scene& scene = data.scene;
    std::vector<std::vector<std::string>> rows;
    const auto onRays = secondsOn(data, &Observation::rays, scene.panels.size() + scene.boxes.size());
    for (std::size_t i = 0; i < onRays.size(); ++i) {
        rows.push_back(targetRow(data, scene.rayTarget(static_cast<int>(i)), Kind::Ray, onRays[i]));
    }
    const auto onTips = secondsOn(data, &Observation::fingertips, scene.patches.size());
    for (std::size_t i = 0; i < onTips.size(); ++i) {
        rows.push_back(targetRow(data, scene.patches[i].name, Kind::Fingertip, onTips[i]));
    }
    return "<div>" + table({"Target", "hovered", "selected", "selections"}, rows) + "</div>\n";
}

} // namespace

std::string sceneSection(const ReportData& data)
{
    if (data.scene.rays.empty() && data.scene.fingertips.empty()) {
        return {};
    }
    const std::vector<Vec3> points = landmarks(data);
    std::string figures;
    for (const View& view : kViews) {
        figures += figure(drawView(data, view, project(view, points)));
    }
    return section("Scene",
                   "Thin lines are the ways of ray origins and fingertips. Dots are what a ray hits, yellow "
                   "where it hovers and green where it selects; straight lines are the ray at the moment of "
                   "selection. Triangles are presses.",
                   "<div class=\"row\">\n" + figures + targetTable(data) + "</div>\n");
}

} // namespace velk_tools
