// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Actors.h"
#include "host/Geometry.h"

#include <cmath>
#include <vector>

namespace velk_soak
{

/// Two rays over planes and boxes, each with a trigger.
class Rays
{
public:
    Rays()
    {
        for (unsigned i = 0; i < 5; ++i) {
            PlaneOrBox surface = makeSurface(i);
            Interactable interactable(velk_RayInteractable_Create(surface));
            targets_.push_back({std::move(surface), std::move(interactable)});
        }
        for (int i = 0; i < 2; ++i) {
            triggers_.emplace_back(velk_Selector_Create());
            rays_.push_back({Interactor(velk_RayInteractor_Create())});
        }
    }

    void frame()
    {
        for (unsigned i = 0; i < 2; ++i) {
            const VelkInteractorHandle ray = rays_[i].interactor;
            const float pitch = 0.05f * swing(307 + i), yaw = 0.3f * swing(173 + 60 * i);
            const float scale = 1 / std::sqrt(1 + pitch * pitch + yaw * yaw);
            const talpPosef pose{{pitch * scale, yaw * scale, 0, scale}, {0.3f * swing(1009), 1.2f, 0}};
            velk_RayInteractor_SetPose(ray, &pose);
            velk_RayInteractor_SetMaxRayLength(ray, 3);
            velk_Interactor_SetSelector(ray, triggers_[i]);
            const long beat = (frameNumber + 17L * i) % 61;
            if (beat == 20 || beat == 50) {
                velk_Selector_Select(triggers_[i]);
            }
            if (beat == 40 || beat == 50) {
                velk_Selector_Unselect(triggers_[i]);
            }
            rays_[i].update(RayHovers, RayPresses);
            talpVector3f end{};
            check(velk_RayInteractor_GetEnd(ray, &end) == 0 && end.z < 0 && end.z > -3.01f,
                  "rays reach forward");
        }
        checkBothSides(rays_, targets_);
    }

    void replaceOne()
    {
        const unsigned place = randomBelow(5);
        Target<PlaneOrBox>& target = targets_[place];
        switch (randomBelow(5)) {
        case 0:
            target.interactable = Interactable(velk_RayInteractable_Create(target.surface));
            break;
        case 1:
            target.surface = makeSurface(place);
            velk_RayInteractable_SetSurface(target.interactable, target.surface);
            break;
        case 2: // a ray in a press keeps the surface, which has no handle any more
            target.surface = makeSurface(place);
            target.interactable = Interactable(velk_RayInteractable_Create(target.surface));
            break;
        case 3:
            rays_[place % 2] = {Interactor(velk_RayInteractor_Create())};
            break;
        default: // in a press, too: the ray waits for the new one's release
            triggers_[place % 2] = Selector(velk_Selector_Create());
        }
    }

private:
    static PlaneOrBox makeSurface(unsigned place)
    {
        const talpPosef pose{velk_tools::kNoRotation, {0.25f * static_cast<float>(place) - 0.5f, 1.2f, -1}};
        const talpVector3f size{0.2f, 0.3f, 0.1f};
        const talpVector2f half{0.1f, 0.15f};
        return PlaneOrBox(place % 2 == 0 ? velk_PointablePlane_Create(&pose, &half)
                                         : velk_PointableAxisAlignedBox_Create(&pose.position, &size));
    }

    std::vector<Target<PlaneOrBox>> targets_;
    std::vector<Actor> rays_;
    std::vector<Selector> triggers_;
};

} // namespace velk_soak
