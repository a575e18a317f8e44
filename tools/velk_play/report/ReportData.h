// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "play/Changes.h"
#include "report/Svg.h"

namespace velk_tools
{

/// A whole run, as the report's sections read it.
struct ReportData
{
    const Scene& scene;
    std::string recording;
    std::vector<Watched> watched;
    std::vector<Observation> frames;
    std::vector<Transition> changes;
    Summary summary;

    Range time() const { return {frames.front().time, frames.back().time}; }
    /// Until when what is seen in a frame holds.
    double endOf(std::size_t frame) const { return frames[std::min(frame + 1, frames.size() - 1)].time; }
    /// For how many seconds what is seen in a frame holds.
    double lengthOf(std::size_t frame) const { return endOf(frame) - frames[frame].time; }
};

/// The time spent in each of the first states of an interactor, or off and on.
struct Seconds
{
    std::array<double, 3> in{};

    void add(int state, double seconds)
    {
        if (state < static_cast<int>(in.size())) {
            in[static_cast<std::size_t>(state)] += seconds;
        }
    }
};

template <typename Read>
Seconds secondsIn(const ReportData& data, Read read)
{
    Seconds seconds;
    for (std::size_t i = 0; i < data.frames.size(); ++i) {
        seconds.add(read(data.frames[i]), data.lengthOf(i));
    }
    return seconds;
}

/// A stretch of time over which a value stays the same.
template <typename T>
struct Run
{
    Range time;
    T value;
};

/// The stretches of what read(observation) gives.
template <typename Read>
auto runsOf(const ReportData& data, Read read)
{
    using T = decltype(read(data.frames.front()));
    std::vector<Run<T>> runs;
    for (std::size_t i = 0; i < data.frames.size(); ++i) {
        T value = read(data.frames[i]);
        if (runs.empty() || runs.back().value != value) {
            runs.push_back({{data.frames[i].time, 0}, std::move(value)});
        }
        runs.back().time.high = data.endOf(i);
    }
    return runs;
}

/// A curve over time of what read(observation) gives.
template <typename Read>
std::vector<Point> curveOf(const ReportData& data, Read read)
{
    std::vector<Point> points;
    points.reserve(data.frames.size());
    for (const Observation& seen : data.frames) {
        points.push_back({seen.time, read(seen)});
    }
    return points;
}

} // namespace velk_tools
