// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include <velk/velk.h>

#include <stdio.h>

int main(void)
{
    /* A button: a 4 cm square of a plane that faces +z. */
    const talpPosef pose = {{0, 0, 0, 1}, {0, 1, -0.5f}};
    const velk_BoundsClipper square = {{0, 0, 0}, {0.04f, 0.04f, 0.1f}};
    VelkSurfacePatchHandle patch = velk_ClippedPlaneSurface_Create(&pose, &square, 1);
    VelkInteractableHandle button = velk_PokeInteractable_Create(patch);
    VelkInteractorHandle finger = velk_PokeInteractor_Create();

    /* Every frame: place the fingertip, update, read. Here it comes 10 cm closer and goes back. */
    for (int frame = 0; frame <= 20; ++frame) {
        const int way = frame <= 10 ? frame : 20 - frame;
        const talpPosef tip = {{0, 0, 0, 1}, {0, 1, -0.4f - 0.0105f * (float)way}};
        VelkInteractableState state = VelkInteractableState_Normal;
        velk_PokeInteractor_SetPointTransform(finger, &tip);
        velk_Interactor_Update(finger);
        velk_Interactable_GetState(button, &state);
        printf("%s", state == VelkInteractableState_Select  ? "#"
                     : state == VelkInteractableState_Hover ? "o"
                                                            : ".");
    }
    printf("\n");

    velk_Interactor_Destroy(finger); /* in any order */
    velk_Interactable_Destroy(button);
    velk_SurfacePatch_Destroy(patch);
    return 0;
}
