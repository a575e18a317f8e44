// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "play/Changes.h"

#include <fmt/format.h>

namespace velk_play
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

    void add(const char* kind, std::string name, std::string_view from, std::string_view to,
             std::string target)
    {
        changes_.push_back({now_.frame, now_.time, kind, std::move(name), std::string(from), std::string(to),
                            std::move(target)});
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

void addGripChanges(ChangeList& list, const char* kind, const char* held,
                    const std::vector<GripTrack>& tracks, const std::vector<GripView>& before,
                    const std::vector<GripView>& now)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const GripView old = viewBefore(before, i);
        for (const std::size_t finger : tracks[i].fingers) {
            if (old.holds[finger] != now[i].holds[finger]) {
                list.add(kind, fingerName(tracks[i], finger), old.holds[finger] ? held : "open",
                         now[i].holds[finger] ? held : "open", {});
            }
        }
    }
}

} // namespace

std::string fingerName(const GripTrack& track, std::size_t finger)
{
    return fmt::format("{} {}", kSideNames[static_cast<std::size_t>(track.side)], kFingerNames[finger]);
}

std::vector<Transition> findChanges(const Scene& scene, const Observation& before, const Observation& now)
{
    ChangeList list(now);
    for (std::size_t i = 0; i < now.rays.size(); ++i) {
        const RayView old = viewBefore(before.rays, i);
        const RayView& ray = now.rays[i];
        if (ray.state != old.state || ray.target != old.target) {
            list.add("ray", scene.rays[i].name, stateName(old.state), stateName(ray.state),
                     scene.rayTarget(ray.target >= 0 ? ray.target : old.target));
        }
    }
    for (std::size_t i = 0; i < now.fingertips.size(); ++i) {
        const FingertipView old = viewBefore(before.fingertips, i);
        const FingertipView& tip = now.fingertips[i];
        if (tip.state != old.state || tip.target != old.target) {
            list.add("fingertip", scene.fingertips[i].name, stateName(old.state), stateName(tip.state),
                     scene.patchName(tip.target >= 0 ? tip.target : old.target));
        }
    }
    addGripChanges(list, "pinch", "pinching", scene.pinches, before.pinches, now.pinches);
    addGripChanges(list, "palm", "gripping", scene.palms, before.palms, now.palms);
    for (std::size_t i = 0; i < now.directions.size(); ++i) {
        const DirectionView old = viewBefore(before.directions, i);
        if (old.active != now.directions[i].active) {
            list.add("direction", scene.directions[i].name, old.active ? "recognised" : "off",
                     now.directions[i].active ? "recognised" : "off", {});
        }
    }
    return list.take();
}

} // namespace velk_play
