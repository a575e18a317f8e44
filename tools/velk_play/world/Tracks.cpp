// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/Tracks.h"

namespace velk_tools
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

/// Pinches and palm grips are read alike, through functions of their own.
template <auto GetScore, auto IsGrabbing, auto HasChanged>
void readGrip(const auto& grab, GripView& view)
{
    for (std::size_t i = 0; i < kFingers.size(); ++i) {
        GetScore(grab, kFingers[i], &view.scores[i]);
        IsGrabbing(grab, kFingers[i], &view.holds[i]);
        HasChanged(grab, kFingers[i], view.holds[i], &view.changed[i]);
    }
}

} // namespace

GripActor::GripActor(const GripTrack& track, Grab grab)
    : track_(track)
    , grab_(std::move(grab))
{
}

void GripActor::update(const Frame& frame)
{
    const HandSample* hand = frame.hand(track_.side);
    view_.tracked = hand != nullptr;
    if (hand == nullptr) {
        return;
    }
    if (auto* pinch = std::get_if<PinchGrab>(&grab_)) {
        updatePinch(*pinch, *hand);
    } else {
        updatePalm(std::get<PalmGrab>(grab_), *hand);
    }
}

void GripActor::updatePinch(PinchGrab& grab, const HandSample& hand)
{
    velk_HandPinchData data;
    for (std::size_t i = 0; i < hand.joints.size(); ++i) {
        data.jointPositions[i] = hand.joints[i].position;
    }
    const Vec3* head = track_.goodView ? &kWristDirection : &kOpposite;
    velk_FingerPinchGrabAPI_UpdateHandWristHMDData(grab, &data, &kWristDirection, head);
    readGrip<velk_FingerPinchGrabAPI_GetFingerGrabScore, velk_FingerPinchGrabAPI_GetFingerIsGrabbing,
             velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged>(grab, view_);
    velk_FingerPinchGrabAPI_GetCenterOffset(grab, &view_.center);
}

void GripActor::updatePalm(PalmGrab& grab, const HandSample& hand)
{
    velk_HandPalmData data;
    std::copy(hand.joints.begin(), hand.joints.end(), data.jointPoses);
    data.rootPose = hand.root;
    data.handedness = hand.handedness;
    velk_FingerPalmGrabAPI_UpdateHandData(grab, &data);
    readGrip<velk_FingerPalmGrabAPI_GetFingerGrabScore, velk_FingerPalmGrabAPI_GetFingerIsGrabbing,
             velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged>(grab, view_);
    velk_FingerPalmGrabAPI_GetCenterOffset(grab, &view_.center);
}

DirectionActor::DirectionActor(const DirectionTrack& track)
    : track_(track)
    , quantizer_(velk_DirectionQuantizer_Create(&track_.reference, track.middleAngle, track.farAngle))
    , recognizer_(velk_DirectionRecognizer_Create())
{
}

void DirectionActor::update(const Frame& frame)
{
    const HandSample* hand = frame.hand(track_.pair.side);
    view_.tracked = hand != nullptr;
    if (hand == nullptr) {
        return;
    }
    const Vec3 now = hand->joint(track_.pair.to).position - hand->joint(track_.pair.from).position;
    view_.angle = angleBetween(now, track_.reference);
    velk_DirectionQuantizer_Update(quantizer_, &now);
    velk_DirectionQuantizer_GetValue(quantizer_, 0, &view_.alignment);
    const velk_DetectionParameter wanted{0, track_.wanted};
    velk_DetectionParameterList list{1, &wanted};
    velk_DirectionRecognizer_Update(recognizer_, quantizer_, &list);
    velk_DirectionRecognizer_IsActive(recognizer_, &view_.active);
}

} // namespace velk_tools
