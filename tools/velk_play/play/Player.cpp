// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "play/Player.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "play/Changes.h"
#include "play/Progress.h"
#include "world/World.h"

namespace velk_tools
{

namespace
{

using Clock = std::chrono::steady_clock;

void waitFor(const Frame& frame, double firstTime, Clock::time_point start)
{
    constexpr double kLongest = 1e9; // seconds; more would not fit the clock
    const std::chrono::duration<double> due(std::min(frame.time - firstTime, kLongest));
    std::this_thread::sleep_until(start + std::chrono::duration_cast<Clock::duration>(due));
}

void add(Summary& summary, const Observation& seen, const std::vector<Transition>& changes)
{
    ++summary.frames;
    summary.transitions += changes.size();
    summary.meanMicroseconds +=
        (seen.microseconds - summary.meanMicroseconds) / static_cast<double>(summary.frames);
    summary.worstMicroseconds = std::max(summary.worstMicroseconds, seen.microseconds);
}

} // namespace

Scene withoutEasing(Scene scene)
{
    for (Patch& patch : scene.patches) {
        patch.config.dragThresholdsEnabled = 0;
    }
    return scene;
}

void play(const Scene& scene, const Recording& recording,
          const std::vector<std::unique_ptr<Observer>>& observers, Pace pace)
{
    World world(scene, recording);
    if (pace == Pace::Settled) {
        world.settleCurves();
    }
    for (const auto& observer : observers) {
        observer->begin(world);
    }
    Summary summary;
    Progress progress(recording.frames.size());
    const Clock::time_point start = Clock::now();
    ChangeFinder changeFinder(scene);
    for (std::size_t i = 0; i < recording.frames.size(); ++i) {
        if (pace == Pace::RealTime) {
            waitFor(recording.frames[i], recording.frames.front().time, start);
        }
        const Observation seen = world.update(i, recording.frames[i]);
        const std::vector<Transition> changes = changeFinder.next(seen);
        add(summary, seen, changes);
        for (const auto& observer : observers) {
            observer->frame(seen, changes);
        }
        progress.advanceTo(i + 1);
    }

    progress.clear();
    for (const auto& observer : observers) {
        observer->end(summary);
    }
}

} // namespace velk_tools
