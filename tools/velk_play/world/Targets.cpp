// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/Targets.h"

#include <algorithm>

namespace velk_tools
{

namespace
{

int findHandle(const std::vector<Interactable>& interactables, VelkInteractableHandle handle)
{
    const auto found = std::find(interactables.begin(), interactables.end(), handle);
    return found == interactables.end() ? -1 : static_cast<int>(found - interactables.begin());
}

} // namespace

RayTargets::RayTargets(const Scene& scene)
{
    for (const Panel& panel : scene.panels) {
        surfaces_.emplace_back(velk_PointablePlane_Create(&panel.pose, &panel.halfSize));
    }
    for (const Box& box : scene.boxes) {
        surfaces_.emplace_back(velk_PointableAxisAlignedBox_Create(&box.center, &box.size));
    }
    for (const PointableSurface& surface : surfaces_) {
        interactables_.emplace_back(velk_RayInteractable_Create(surface));
    }
}

int RayTargets::indexOf(VelkInteractableHandle handle) const
{
    return findHandle(interactables_, handle);
}

std::vector<VelkInteractableState> RayTargets::view() const
{
    std::vector<VelkInteractableState> states(interactables_.size());
    for (std::size_t i = 0; i < states.size(); ++i) {
        velk_Interactable_GetState(interactables_[i], &states[i]);
    }
    return states;
}

PokeTargets::PokeTargets(const Scene& scene)
{
    for (const Patch& patch : scene.patches) {
        patches_.emplace_back(velk_ClippedPlaneSurface_Create(&patch.pose, patch.clippers.data(),
                                                              static_cast<int>(patch.clippers.size())));
        interactables_.emplace_back(velk_PokeInteractable_CreateWithConfig(patches_.back(), &patch.config));
        std::optional<ButtonVisual>& button = buttons_.emplace_back();
        if (patch.button) {
            button.emplace(
                velk_PokeButtonVisual_Create(interactables_.back(), &patch.pose, patch.button->travel));
        }
    }
}

int PokeTargets::indexOf(VelkInteractableHandle handle) const
{
    return findHandle(interactables_, handle);
}

std::vector<PatchView> PokeTargets::view() const
{
    std::vector<PatchView> views(interactables_.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
        velk_Interactable_GetState(interactables_[i], &views[i].state);
        if (buttons_[i]) {
            velk_PokeButtonVisual_GetCurrentExtent(*buttons_[i], &views[i].extent);
            velk_PokeButtonVisual_GetCurrentPose(*buttons_[i], &views[i].cap.emplace());
        }
    }
    return views;
}

} // namespace velk_tools
