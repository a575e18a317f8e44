// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "play/Changes.h"

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

class ChangeList
{
public:
    explicit ChangeList(const Observation& now)
        : now_(now)
    {
    }

    void add(Kind kind, std::string name, State from, State to, std::string target)
    {
        changes_.push_back({now_.frame, now_.time, kind, std::move(name), from, to, std::move(target)});
    }

    std::vector<Transition> take() { return std::move(changes_); }

private:
    const Observation& now_;
    std::vector<Transition> changes_;
};

/// The view a list had before; one at rest where it had none.
template <typename View>
View viewBefore(const std::vector<View>& views, std::size_t i)
{
    return i < views.size() ? views[i] : View{};
}

void addGripChanges(ChangeList& list, Kind kind, const std::vector<GripTrack>& tracks,
                    const std::vector<GripView>& before, const std::vector<GripView>& now)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const GripView old = viewBefore(before, i);
        for (const std::size_t finger : tracks[i].fingers) {
            if (old.holds[finger] != now[i].holds[finger]) {
                list.add(kind, fingerName(tracks[i], finger), stateOf(kind, old.holds[finger]),
                         stateOf(kind, now[i].holds[finger]), {});
            }
        }
    }
}

} // namespace

std::string fingerName(const GripTrack& track, std::size_t finger)
{
    return fmt::format("{} {}", nameOf(track.side), kFingerNames[finger]);
}

std::vector<Transition> findChanges(const Scene& scene, const Observation& before, const Observation& now)
{
    ChangeList list(now);
    for (std::size_t i = 0; i < now.rays.size(); ++i) {
        const RayView old = viewBefore(before.rays, i);
        const RayView& ray = now.rays[i];
        if (ray.state != old.state || ray.target != old.target) {
            list.add(Kind::Ray, scene.rays[i].name, stateOf(old.state), stateOf(ray.state),
                     scene.rayTarget(ray.target >= 0 ? ray.target : old.target));
        }
    }
    for (std::size_t i = 0; i < now.fingertips.size(); ++i) {
        const FingertipView old = viewBefore(before.fingertips, i);
        const FingertipView& tip = now.fingertips[i];
        if (tip.state != old.state || tip.target != old.target) {
            list.add(Kind::Fingertip, scene.fingertips[i].name, stateOf(old.state), stateOf(tip.state),
                     scene.patchName(tip.target >= 0 ? tip.target : old.target));
        }
    }
    addGripChanges(list, Kind::Pinch, scene.pinches, before.pinches, now.pinches);
    addGripChanges(list, Kind::Palm, scene.palms, before.palms, now.palms);
    for (std::size_t i = 0; i < now.directions.size(); ++i) {
        const DirectionView old = viewBefore(before.directions, i);
        if (old.active != now.directions[i].active) {
            list.add(Kind::Direction, scene.directions[i].name, stateOf(Kind::Direction, old.active),
                     stateOf(Kind::Direction, now.directions[i].active), {});
        }
    }
    return list.take();
}

} // namespace velk_tools
