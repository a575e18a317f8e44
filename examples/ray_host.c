// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// The smallest complete host: a ray passes over two panels, and a trigger is held on the way.
#include <velk/velk.h>

#include <stdio.h>

static const char* const kStates[] = {"Normal", "Hover", "Select", "Disabled"};

int main(void)
{
    const float middles[2] = {-0.4f, 0.4f};      // metres along x
    const talpVector2f half_size = {0.2f, 0.2f}; // to each side of the middle
    VelkPointableSurfaceHandle planes[2];
    VelkInteractableHandle panels[2];
    for (int i = 0; i < 2; ++i) {
        const talpPosef pose = {{0, 0, 0, 1}, {middles[i], 0, -1.5f}}; // faces +z
        planes[i] = velk_PointablePlane_Create(&pose, &half_size);
        panels[i] = velk_RayInteractable_Create(planes[i]);
    }
    const VelkSelectorHandle trigger = velk_Selector_Create();
    const VelkInteractorHandle ray = velk_RayInteractor_Create();
    velk_RayInteractor_SetMaxRayLength(ray, 2.0f);
    velk_Interactor_SetSelector(ray, trigger);

    VelkInteractorState before = VelkInteractorState_Normal;
    for (int frame = 0; frame < 16; ++frame) {
        const talpPosef pose = {{0, 0, 0, 1}, {0.1f * (float)frame - 0.75f, 0, 0}}; // looks along -z
        velk_RayInteractor_SetPose(ray, &pose);
        if (frame == 4) {
            velk_Selector_Select(trigger); // only noted: the update decides
        } else if (frame == 8) {
            velk_Selector_Unselect(trigger);
        }
        velk_Interactor_Update(ray);

        VelkInteractorState state = before;
        talpVector3f end = {0, 0, 0};
        velk_Interactor_GetState(ray, &state);
        velk_RayInteractor_GetEnd(ray, &end);
        const VelkInteractableHandle hovered = velk_Interactor_GetInteractable(ray);
        const char* panel = hovered == panels[0] ? "left" : hovered == panels[1] ? "right" : "none";
        if (state != before) {
            printf("frame %2d: %-6s -> %-6s  panel: %-5s  ray's end: z = %.1f\n", frame, kStates[before],
                   kStates[state], panel, end.z);
        }
        before = state;
    }

    velk_Interactor_Destroy(ray); // in any order
    velk_Selector_Destroy(trigger);
    for (int i = 0; i < 2; ++i) {
        velk_Interactable_Destroy(panels[i]);
        velk_PointableSurface_Destroy(planes[i]);
    }
    return 0;
}
