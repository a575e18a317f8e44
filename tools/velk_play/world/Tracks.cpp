// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/Tracks.h"

namespace velk_play
{

namespace
{

constexpr std::array<VelkHandFinger, 5> kFingers{VelkHandFinger_Thumb, VelkHandFinger_Index,
                                                 VelkHandFinger_Middle, VelkHandFinger_Ring,
                                                 VelkHandFinger_Pinky};

/// The recordings have no head. The library compares two directions: equal ones are a hand in good view,
/// opposite ones a hand in poor view.
constexpr Vec3 kWristDirection{0, 0, -1};
constexpr Vec3 kOpposite{0, 0, 1};

Quantizer makeQuantizer(const DirectionTrack& track)
{
    Vec3 reference = track.reference;
    return Quantizer(velk_DirectionQuantizer_Create(&reference, track.middleAngle, track.farAngle));
}

} // namespace

PinchActor::PinchActor(const GripTrack& track)
    : track_(track)
    , grab_(velk_FingerPinchGrabAPI_Create())
{
}

void PinchActor::update(const Frame& frame)
{
    const auto& hand = frame.hand(track_.side);
    view_.tracked = hand.has_value();
    if (!hand) {
        return;
    }
    velk_HandPinchData data;
    for (std::size_t i = 0; i < hand->joints.size(); ++i) {
        data.jointPositions[i] = hand->joints[i].position;
    }
    const Vec3* head = track_.goodView ? &kWristDirection : &kOpposite;
    velk_FingerPinchGrabAPI_UpdateHandWristHMDData(grab_.get(), &data, &kWristDirection, head);
    for (std::size_t i = 0; i < kFingers.size(); ++i) {
        velk_FingerPinchGrabAPI_GetFingerGrabScore(grab_.get(), kFingers[i], &view_.scores[i]);
        velk_FingerPinchGrabAPI_GetFingerIsGrabbing(grab_.get(), kFingers[i], &view_.holds[i]);
        velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged(grab_.get(), kFingers[i], view_.holds[i],
                                                           &view_.changed[i]);
    }
    velk_FingerPinchGrabAPI_GetCenterOffset(grab_.get(), &view_.center);
}

PalmActor::PalmActor(const GripTrack& track)
    : track_(track)
    , grab_(velk_FingerPalmGrabAPI_Create())
{
}

void PalmActor::update(const Frame& frame)
{
    const auto& hand = frame.hand(track_.side);
    view_.tracked = hand.has_value();
    if (!hand) {
        return;
    }
    velk_HandPalmData data;
    std::copy(hand->joints.begin(), hand->joints.end(), data.jointPoses);
    data.rootPose = hand->root;
    data.handedness = hand->handedness;
    velk_FingerPalmGrabAPI_UpdateHandData(grab_.get(), &data);
    for (std::size_t i = 0; i < kFingers.size(); ++i) {
        velk_FingerPalmGrabAPI_GetFingerGrabScore(grab_.get(), kFingers[i], &view_.scores[i]);
        velk_FingerPalmGrabAPI_GetFingerIsGrabbing(grab_.get(), kFingers[i], &view_.holds[i]);
        velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged(grab_.get(), kFingers[i], view_.holds[i],
                                                          &view_.changed[i]);
    }
    velk_FingerPalmGrabAPI_GetCenterOffset(grab_.get(), &view_.center);
}

DirectionActor::DirectionActor(const DirectionTrack& track)
    : track_(track)
    , quantizer_(makeQuantizer(track))
    , recognizer_(velk_DirectionRecognizer_Create())
{
}

void DirectionActor::update(const Frame& frame)
{
    const auto& hand = frame.hand(track_.pair.side);
    view_.tracked = hand.has_value();
    if (!hand) {
        return;
    }
    const Vec3 now = hand->joint(track_.pair.to).position - hand->joint(track_.pair.from).position;
    view_.angle = angleBetween(now, track_.reference);
    velk_DirectionQuantizer_Update(quantizer_.get(), &now);
    velk_DirectionQuantizer_GetValue(quantizer_.get(), 0, &view_.alignment);
    const velk_DetectionParameter wanted{0, track_.wanted};
    velk_DetectionParameterList list{1, &wanted};
    velk_DirectionRecognizer_Update(recognizer_.get(), quantizer_.get(), &list);
    velk_DirectionRecognizer_IsActive(recognizer_.get(), &view_.active);
}

} // namespace velk_play
