// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// A right hand closes to a fist and opens; then its thumb comes to the index fingertip and leaves it. The
// hand is made up in OpenXR's joints, as a headset would give them.

#include "openxr_joints.h"

#include <math.h>
#include <stdio.h>

static const talpQuatf kNoTurn = {0.0f, 0.0f, 0.0f, 1.0f};

// One finger, held forward along -Z and bent down by this angle (radians) at each of its joints.
static void makeFinger(talpPosef* proximal, float side, float bend)
{
    talpVector3f at = {side, 0.0f, -0.09f};
    float angle = 0.0f;
    int i;
    for (i = 0; i < 4; ++i) {
        angle -= i < 3 ? bend : 0.0f; // the tip is turned like the last bone
        proximal[i].position = at;
        proximal[i].orientation = kNoTurn;
        proximal[i].orientation.x = sinf(angle / 2.0f);
        proximal[i].orientation.w = cosf(angle / 2.0f);
        at.y += 0.03f * sinf(angle);
        at.z -= 0.03f * cosf(angle);
    }
}

// A right hand at the origin, palm down, with its thumb straight out to the left.
static void makeHand(talpPosef* joints, float bend)
{
    int i;
    for (i = 0; i < OPENXR_JOINT_COUNT; ++i) {
        const talpVector3f thumb = {-0.025f * (float)i, 0.0f, -0.03f};
        joints[i].orientation = kNoTurn;
        joints[i].position = thumb;
    }
    makeFinger(&joints[OPENXR_INDEX_PROXIMAL], -0.03f, bend);
    makeFinger(&joints[OPENXR_MIDDLE_PROXIMAL], -0.01f, bend);
    makeFinger(&joints[OPENXR_RING_PROXIMAL], 0.01f, bend);
    makeFinger(&joints[OPENXR_LITTLE_PROXIMAL], 0.03f, bend);
}

int main(void)
{
    static const int bends[] = {0, 15, 30, 45, 60, 75, 60, 45, 30, 15}; // degrees
    static const int gaps[] = {60, 28, 15, 5, 15, 28, 40, 60};          // millimetres
    const VelkPalmGrabAPIHandle palm = velk_FingerPalmGrabAPI_Create();
    const VelkPinchGrabAPIHandle pinch = velk_FingerPinchGrabAPI_Create();
    talpPosef joints[OPENXR_JOINT_COUNT];
    velk_HandPalmData palmData;
    velk_HandPinchData pinchData;
    talpVector3f center;
    float score = 0.0f;
    bool grabbing = false;
    size_t i;

    for (i = 0; i < sizeof bends / sizeof bends[0]; ++i) {
        makeHand(joints, (float)bends[i] / 57.29578f);
        openxr_toPalmData(joints, 1, &palmData);
        velk_FingerPalmGrabAPI_UpdateHandData(palm, &palmData);
        velk_FingerPalmGrabAPI_GetFingerGrabScore(palm, VelkHandFinger_Index, &score);
        velk_FingerPalmGrabAPI_GetFingerIsGrabbing(palm, VelkHandFinger_Index, &grabbing);
        printf("bent by %2d degrees: strength %.2f%s\n", bends[i], score, grabbing ? ", grips" : "");
    }
    velk_FingerPalmGrabAPI_GetCenterOffset(palm, &center);
    printf("palm at (%.2f, %.2f, %.2f) from the root\n\n", center.x, center.y, center.z);

    makeHand(joints, 0.2f);
    for (i = 0; i < sizeof gaps / sizeof gaps[0]; ++i) {
        joints[OPENXR_THUMB_TIP] = joints[OPENXR_INDEX_TIP];
        joints[OPENXR_THUMB_TIP].position.y -= (float)gaps[i] / 1000.0f;
        joints[OPENXR_THUMB_DISTAL] = joints[OPENXR_THUMB_TIP];
        joints[OPENXR_THUMB_DISTAL].position.y -= 0.03f;
        openxr_toPinchData(joints, 1, &pinchData);
        // Where the host knows both directions it calls velk_FingerPinchGrabAPI_UpdateHandWristHMDData.
        velk_FingerPinchGrabAPI_UpdateHandData(pinch, &pinchData);
        velk_FingerPinchGrabAPI_GetFingerGrabScore(pinch, VelkHandFinger_Index, &score);
        velk_FingerPinchGrabAPI_GetFingerIsGrabbing(pinch, VelkHandFinger_Index, &grabbing);
        printf("thumb %2d mm away: score %.2f%s\n", gaps[i], score, grabbing ? ", pinches" : "");
    }

    velk_FingerPinchGrabAPI_Destroy(pinch);
    velk_FingerPalmGrabAPI_Destroy(palm);
    return 0;
}
