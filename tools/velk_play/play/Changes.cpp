// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "play/Changes.h"

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

void addFingers(std::vector<Watched>& all, Kind kind, const std::vector<GripTrack>& tracks,
                std::vector<GripView> Observation::*views)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t finger : tracks[i].fingers) {
            all.push_back({kind, fingerName(tracks[i], finger), [=](const Observation& seen) {
                               return Doing{stateOf(kind, (seen.*views)[i].holds[finger])};
                           }});
        }
    }
}

} // namespace

std::vector<Watched> watchedIn(const Scene& scene)
{
    std::vector<Watched> all;
    for (std::size_t i = 0; i < scene.rays.size(); ++i) {
        all.push_back({Kind::Ray, scene.rays[i].name, [i](const Observation& seen) {
                           return Doing{stateOf(seen.rays[i].state), seen.rays[i].target};
                       }});
    }
    for (std::size_t i = 0; i < scene.fingertips.size(); ++i) {
        all.push_back({Kind::Fingertip, scene.fingertips[i].name, [i](const Observation& seen) {
                           return Doing{stateOf(seen.fingertips[i].state), seen.fingertips[i].target};
                       }});
    }
    addFingers(all, Kind::Pinch, scene.pinches, &Observation::pinches);
    addFingers(all, Kind::Palm, scene.palms, &Observation::palms);
    for (std::size_t i = 0; i < scene.directions.size(); ++i) {
        all.push_back({Kind::Direction, scene.directions[i].name, [i](const Observation& seen) {
                           return Doing{stateOf(Kind::Direction, seen.directions[i].active)};
                       }});
    }
    return all;
}

std::string targetName(const Scene& scene, Kind kind, int target)
{
    return kind == Kind::Ray ? scene.rayTarget(target) : scene.patchName(target);
}

std::string fingerName(const GripTrack& track, std::size_t finger)
{
    return fmt::format("{} {}", nameOf(track.side), kFingerNames[finger]);
}

ChangeFinder::ChangeFinder(const Scene& scene)
    : scene_(scene)
    , watched_(watchedIn(scene))
{
    for (const Watched& who : watched_) {
        before_.push_back({restState(who.kind)});
    }
}

std::vector<Transition> ChangeFinder::next(const Observation& seen)
{
    std::vector<Transition> changes;
    for (std::size_t i = 0; i < watched_.size(); ++i) {
        const auto& [kind, name, doing] = watched_[i];
        const Doing before = before_[i];
        const Doing now = before_[i] = doing(seen);
        if (now != before) {
            const int target = now.target >= 0 ? now.target : before.target;
            changes.push_back({seen.frame, seen.time, kind, name, before.state, now.state,
                               targetName(scene_, kind, target)});
        }
    }
    return changes;
}

} // namespace velk_tools
