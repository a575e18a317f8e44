// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Owned.h"

#include <algorithm>
#include <vector>

namespace velk_soak
{

/// What acts, and how its last update left it.
struct Actor
{
    Interactor interactor;
    VelkInteractorState state = VelkInteractorState_Normal;
    VelkInteractableHandle on = VelkInteractableHandle_Invalid;

    void update(What hovers, What presses)
    {
        const VelkInteractorState before = state;
        check(velk_Interactor_Update(interactor) == 0 && velk_Interactor_GetState(interactor, &state) == 0,
              "interactors can be updated and read");
        on = velk_Interactor_GetInteractable(interactor);
        check(on < 0 || state != VelkInteractorState_Normal, "in Normal there is no interactable");
        counts[hovers] += before == VelkInteractorState_Normal && state == VelkInteractorState_Hover;
        counts[presses] += before != state && state == VelkInteractorState_Select && on >= 0;
    }
};

/// What is acted on.
template <typename Surface>
struct Target // NOLINT(cppcoreguidelines-pro-type-member-init): a handle is never made without a value
{
    Surface surface;
    Interactable interactable;
};

template <typename Surface>
void checkBothSides(const std::vector<Actor>& actors, const std::vector<Target<Surface>>& targets)
{
    auto lost = std::ranges::count_if(actors, [](const Actor& actor) { return actor.on >= 0; });
    for (const auto& target : targets) {
        int32_t wanted = VelkInteractableState_Normal;
        for (const Actor& actor : actors) {
            const bool met = actor.on == target.interactable;
            lost -= met;
            wanted = met ? std::max<int32_t>(wanted, actor.state) : wanted;
        }
        VelkInteractableState state = VelkInteractableState_Disabled;
        check(velk_Interactable_GetState(target.interactable, &state) == 0 && state == wanted,
              "an interactable's state is that of the interactors on it");
    }
    check(lost == 0, "interactors are only on what there is");
}

} // namespace velk_soak
