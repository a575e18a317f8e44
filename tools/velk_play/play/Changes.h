// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <functional>
#include <vector>

#include "play/Observer.h"

namespace velk_tools
{

/// The state of a watched thing, and the target it is on, as the scene counts it; -1 for none.
struct Doing
{
    State state{};
    int target = -1;

    bool operator==(const Doing&) const = default;
};

/// An interactor, a finger that pinches or grips, or a direction.
struct Watched
{
    Kind kind{};
    std::string name;
    std::function<Doing(const Observation&)> doing;
};

/// All that outputs tell of, in their order.
std::vector<Watched> watchedIn(const Scene& scene);

std::string targetName(const Scene& scene, Kind kind, int target);

/// How outputs name a finger of a grip track: "right index".
std::string fingerName(const GripTrack& track, std::size_t finger);

/// Finds what differs between frames that follow each other. At first all is at rest. The scene must outlive
/// it.
class ChangeFinder
{
public:
    explicit ChangeFinder(const Scene& scene);
    std::vector<Transition> next(const Observation& seen);

private:
    const Scene& scene_;
    std::vector<Watched> watched_;
    std::vector<Doing> before_;
};

} // namespace velk_tools
