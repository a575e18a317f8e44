// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// From the 26 joints of OpenXR's hand tracking (XR_EXT_hand_tracking) to velk's hand records. It needs
// neither OpenXR's headers nor its loader: an XrPosef has the layout of a talpPosef, so a host copies the 26
// poses over.
//
//   talpPosef joints[OPENXR_JOINT_COUNT];
//   for (i = 0; i < OPENXR_JOINT_COUNT; ++i) memcpy(&joints[i], &locations[i].pose, sizeof joints[i]);
//   openxr_toPalmData(joints, isRight, &palm);
//
// Pass a hand only while it's tracked, with the position and orientation of every joint valid. A hand of
// zeros reads as a fist and holds a pinch, so on a frame without tracking make no update at all.
//
// Frames. An OpenXR joint has -Z along the bone to the tip and +Y out of the back of the hand, on both hands.
// The records take +Z as the axis that a finger bends about: the right hand has +X along the bone to the tip
// and +Y out of the back, the left hand has both turned about. All joints are given in the space of the root.

#ifndef VELK_EXAMPLES_OPENXR_JOINTS_H
#define VELK_EXAMPLES_OPENXR_JOINTS_H

#include <velk/velk.h>

#define OPENXR_JOINT_COUNT 26

// XrHandJointEXT, by its numbers.
enum
{
    OPENXR_PALM = 0,
    OPENXR_WRIST = 1,
    OPENXR_THUMB_METACARPAL = 2,
    OPENXR_THUMB_PROXIMAL = 3,
    OPENXR_THUMB_DISTAL = 4,
    OPENXR_THUMB_TIP = 5,
    OPENXR_INDEX_METACARPAL = 6,
    OPENXR_INDEX_PROXIMAL = 7,
    OPENXR_INDEX_INTERMEDIATE = 8,
    OPENXR_INDEX_DISTAL = 9,
    OPENXR_INDEX_TIP = 10,
    OPENXR_MIDDLE_METACARPAL = 11,
    OPENXR_MIDDLE_PROXIMAL = 12,
    OPENXR_MIDDLE_INTERMEDIATE = 13,
    OPENXR_MIDDLE_DISTAL = 14,
    OPENXR_MIDDLE_TIP = 15,
    OPENXR_RING_METACARPAL = 16,
    OPENXR_RING_PROXIMAL = 17,
    OPENXR_RING_INTERMEDIATE = 18,
    OPENXR_RING_DISTAL = 19,
    OPENXR_RING_TIP = 20,
    OPENXR_LITTLE_METACARPAL = 21,
    OPENXR_LITTLE_PROXIMAL = 22,
    OPENXR_LITTLE_INTERMEDIATE = 23,
    OPENXR_LITTLE_DISTAL = 24,
    OPENXR_LITTLE_TIP = 25
};

// The OpenXR joint that feeds a joint of the records. Root1 and ThumbRoot have no source: Root1 is the wrist
// again, ThumbRoot stands midway from the wrist to ThumbBase with its rotation. The palm and the metacarpals
// of index, middle and ring finger feed nothing.
static inline int openxr_sourceOf(int velkJoint)
{
    static const int sources[VELK_HAND_JOINT_COUNT] = {
        OPENXR_WRIST,               // Root0
        OPENXR_WRIST,               // Root1
        OPENXR_THUMB_METACARPAL,    // ThumbRoot
        OPENXR_THUMB_METACARPAL,    // ThumbBase
        OPENXR_THUMB_PROXIMAL,      // ThumbProximal
        OPENXR_THUMB_DISTAL,        // ThumbDistal
        OPENXR_INDEX_PROXIMAL,      // IndexProximal
        OPENXR_INDEX_INTERMEDIATE,  // IndexMid
        OPENXR_INDEX_DISTAL,        // IndexDistal
        OPENXR_MIDDLE_PROXIMAL,     // MiddleProximal
        OPENXR_MIDDLE_INTERMEDIATE, // MiddleMid
        OPENXR_MIDDLE_DISTAL,       // MiddleDistal
        OPENXR_RING_PROXIMAL,       // RingProximal
        OPENXR_RING_INTERMEDIATE,   // RingMid
        OPENXR_RING_DISTAL,         // RingDistal
        OPENXR_LITTLE_METACARPAL,   // PinkyBase
        OPENXR_LITTLE_PROXIMAL,     // PinkyProximal
        OPENXR_LITTLE_INTERMEDIATE, // PinkyMid
        OPENXR_LITTLE_DISTAL,       // PinkyDistal
        OPENXR_THUMB_TIP,           // ThumbTip
        OPENXR_INDEX_TIP,           // IndexTip
        OPENXR_MIDDLE_TIP,          // MiddleTip
        OPENXR_RING_TIP,            // RingTip
        OPENXR_LITTLE_TIP,          // PinkyTip
    };
    return sources[velkJoint];
}

static inline talpQuatf openxr_multiply(talpQuatf a, talpQuatf b)
{
    talpQuatf q;
    q.x = a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y;
    q.y = a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x;
    q.z = a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w;
    q.w = a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z;
    return q;
}

static inline talpQuatf openxr_conjugate(talpQuatf q)
{
    q.x = -q.x;
    q.y = -q.y;
    q.z = -q.z;
    return q;
}

static inline talpVector3f openxr_rotate(talpQuatf q, talpVector3f v)
{
    const talpQuatf p = {v.x, v.y, v.z, 0.0f};
    const talpQuatf turned = openxr_multiply(openxr_multiply(q, p), openxr_conjugate(q));
    const talpVector3f result = {turned.x, turned.y, turned.z};
    return result;
}

// A rotation of OpenXR in the frame of the records, by a turn on the right: a quarter turn about Y for the
// right hand, a half turn about the line between X and Z for the left.
static inline talpQuatf openxr_toRecordFrame(talpQuatf orientation, int isRight)
{
    const talpQuatf right = {0.0f, 0.70710678f, 0.0f, 0.70710678f};
    const talpQuatf left = {0.70710678f, 0.0f, 0.70710678f, 0.0f};
    return openxr_multiply(orientation, isRight ? right : left);
}

// The pose of a joint in the space of the root. `root` and `joint` are poses of one space.
static inline talpPosef openxr_inRootSpace(const talpPosef* root, const talpPosef* joint)
{
    const talpQuatf toRoot = openxr_conjugate(root->orientation);
    const talpVector3f offset = {joint->position.x - root->position.x, joint->position.y - root->position.y,
                                 joint->position.z - root->position.z};
    talpPosef pose;
    pose.orientation = openxr_multiply(toRoot, joint->orientation);
    pose.position = openxr_rotate(toRoot, offset);
    return pose;
}

// For velk_FingerPalmGrabAPI_UpdateHandData. The palm points of velk_FingerPalmGrabAPI_GetCenterOffset lie in
// the palm with a handedness of 1 for the right hand and 0 for the left.
static inline void openxr_toPalmData(const talpPosef* joints, int isRight, velk_HandPalmData* out)
{
    int i;
    out->rootPose = joints[OPENXR_WRIST];
    out->rootPose.orientation = openxr_toRecordFrame(joints[OPENXR_WRIST].orientation, isRight);
    out->handedness = isRight ? 1 : 0;
    for (i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
        talpPosef joint = joints[openxr_sourceOf(i)];
        joint.orientation = openxr_toRecordFrame(joint.orientation, isRight);
        out->jointPoses[i] = openxr_inRootSpace(&out->rootPose, &joint);
    }
    out->jointPoses[VelkHandJointId_ThumbRoot].position.x *= 0.5f;
    out->jointPoses[VelkHandJointId_ThumbRoot].position.y *= 0.5f;
    out->jointPoses[VelkHandJointId_ThumbRoot].position.z *= 0.5f;
}

// For velk_FingerPinchGrabAPI_UpdateHandWristHMDData and velk_FingerPinchGrabAPI_UpdateHandData.
static inline void openxr_toPinchData(const talpPosef* joints, int isRight, velk_HandPinchData* out)
{
    velk_HandPalmData palm;
    int i;
    openxr_toPalmData(joints, isRight, &palm);
    for (i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
        out->jointPositions[i] = palm.jointPoses[i].position;
    }
}

// For velk_ExternalHandSource_SetData.
static inline void openxr_toHandData(const talpPosef* joints, int isRight, velk_HandData* out)
{
    velk_HandPalmData palm;
    int i;
    openxr_toPalmData(joints, isRight, &palm);
    out->rootPose = palm.rootPose;
    for (i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
        out->joints[i] = palm.jointPoses[i].orientation;
    }
}

#endif
