// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// Smooths a noisy hand: it rests, moves to the side, and rests again. The filter takes out most of the noise
// at rest and lets the motion through, a hundredth of a second late.
#include <velk/velk.h>

#include <math.h>
#include <stdint.h>
#include <stdio.h>

#define FRAME_RATE 60 // hertz
#define PHASES 3

// Seconds of each phase, and how fast the hand moves in it.
static const char* const kNames[PHASES] = {"at rest", "in motion", "at rest"};
static const float kSeconds[PHASES] = {1.0f, 0.5f, 1.0f};
static const float kMetresPerSecond[PHASES] = {0.0f, 1.0f, 0.0f};

// Up to a millimetre to either side, the same in every run.
static float noise(void)
{
    static uint32_t seed = 1;
    seed = seed * 1664525u + 1013904223u;
    return 0.001f * ((float)(seed >> 16) / 32767.5f - 1.0f);
}

static velk_HandData hand_at(float x)
{
    velk_HandData hand;
    for (int i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
        const talpQuatf straight = {0, 0, 0, 1};
        hand.joints[i] = straight;
    }
    const talpPosef root = {{0, 0, 0, 1}, {x, 1.2f, -0.3f}};
    hand.rootPose = root;
    return hand;
}

int main(void)
{
    const VelkDataSourceHandle source = velk_DataSource_Create(VelkDataSourceType_External);
    const VelkDataSourceHandle filter =
        velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, source);
    // The filter has no clock: it must be told how often it runs.
    velk_DataSource_SetAttributeFloat(filter, VelkHandFilterAttribute_UpdateRate, FRAME_RATE);

    float x = 0.0f;
    float raw_before = 0.0f;
    float filtered_before = 0.0f;
    puts("mean step of the wrist in a frame, and how far it is from its true place, in millimetres");
    puts("             raw step  filtered step  raw error  filtered error");
    for (int phase = 0; phase < PHASES; ++phase) {
        const int frames = (int)(kSeconds[phase] * FRAME_RATE);
        float raw_steps = 0, filtered_steps = 0, raw_error = 0, filtered_error = 0;
        for (int frame = 0; frame < frames; ++frame) {
            x += kMetresPerSecond[phase] / FRAME_RATE;
            velk_HandData hand = hand_at(x + noise());
            const float raw = hand.rootPose.position.x;

            velk_ExternalHandSource_SetData(source, &hand);
            velk_DataSource_Update(filter); // updates the source first
            velk_DataSource_GetData(filter, &hand);

            const float filtered = hand.rootPose.position.x;
            raw_steps += fabsf(raw - raw_before);
            filtered_steps += fabsf(filtered - filtered_before);
            raw_error += fabsf(raw - x);
            filtered_error += fabsf(filtered - x);
            raw_before = raw;
            filtered_before = filtered;
        }
        const float scale = 1000.0f / (float)frames;
        printf("%-10s   %8.1f  %13.1f  %9.1f  %14.1f\n", kNames[phase], scale * raw_steps,
               scale * filtered_steps, scale * raw_error, scale * filtered_error);
    }

    velk_DataSource_Destroy(filter);
    velk_DataSource_Destroy(source);
    return 0; // usage counting may hold the end of the program for up to ten seconds
}
