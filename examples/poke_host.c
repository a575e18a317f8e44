// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A fingertip presses a button that lies on a table, retreats, presses again and leaves. Prints what finger
// and button say in each frame, and how far the button's cap stands out.

#include <velk/velk.h>

#include <stdio.h>

static const float kMillimetre = 0.001f;
static const float kRadius = 5.0f; // of a fingertip's sphere, in millimetres; heights are those of its skin

static void moveTo(VelkInteractorHandle finger, float height)
{
    const talpPosef pose = {{0.0f, 0.0f, 0.0f, 1.0f}, {0.0f, (height + kRadius) * kMillimetre, 0.0f}};
    velk_PokeInteractor_SetPointTransform(finger, &pose);
    velk_Interactor_Update(finger);
}

static void printRow(float height, VelkInteractorHandle finger, VelkInteractableHandle button,
                     VelkPokeButtonVisualHandle cap)
{
    static const char* const fingerNames[] = {"-", "hovers", "presses", "disabled"};
    static const char* const buttonNames[] = {"-", "hovered", "pressed", "disabled"};
    VelkInteractorState fingerState = VelkInteractorState_Normal;
    VelkInteractableState buttonState = VelkInteractableState_Normal;
    float extent = 0.0f;
    int i;
    velk_Interactor_GetState(finger, &fingerState);
    velk_Interactable_GetState(button, &buttonState);
    velk_PokeButtonVisual_GetCurrentExtent(cap, &extent);
    printf("%5.0f mm   %-9s %-9s |", (double)height, fingerNames[fingerState], buttonNames[buttonState]);
    for (i = 0; i < (int)(extent / kMillimetre + 0.5f); ++i) {
        putchar('#');
    }
    putchar('\n');
}

int main(void)
{
    // +z of a surface is its front; turned up, it is a table's top.
    const talpPosef tableTop = {{-0.70710678f, 0.0f, 0.0f, 0.70710678f}, {0.0f, 0.0f, 0.0f}};
    const velk_BoundsClipper square = {{0.0f, 0.0f, 0.0f}, {0.04f, 0.04f, 0.04f}};
    const float heights[] = {60,  40,  31,  29, 20, 12, 5,  -2, -15, -30, // down
                             -22, -12, -9,                                // back by more than 20: let go
                             -20, -28, -30,                               // in by more than 20: pressed again
                             -20, -5,  1,   3,  20, 40, 49, 52};          // and away
    const int count = (int)(sizeof heights / sizeof heights[0]);
    const VelkSurfacePatchHandle patch = velk_ClippedPlaneSurface_Create(&tableTop, &square, 1);
    const VelkInteractableHandle button = velk_PokeInteractable_Create(patch);
    const VelkPokeButtonVisualHandle cap = velk_PokeButtonVisual_Create(button, &tableTop, 0.02f);
    const VelkInteractorHandle finger = velk_PokeInteractor_Create();
    int i;

    // A new finger comes from the world's origin, so its first point must lie in front of all that it could
    // press.
    printf("  height   finger    button    cap\n");
    for (i = 0; i < count; ++i) {
        moveTo(finger, heights[i]);
        printRow(heights[i], finger, button, cap);
    }

    velk_Interactor_Destroy(finger);
    velk_PokeButtonVisual_Destroy(cap);
    velk_Interactable_Destroy(button);
    velk_SurfacePatch_Destroy(patch);
    return 0;
}
