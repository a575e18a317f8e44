// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/FingerPalmGrabAPI.h"

#include "velk_core/interaction/palmgrab/Bends.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/witness/Witness.h"

namespace velk::interaction::grab
{

FingerPalmGrabAPI::FingerPalmGrabAPI()
    : fingers_{FingerGrabData(HandFinger::Thumb), FingerGrabData(HandFinger::Index),
               FingerGrabData(HandFinger::Middle), FingerGrabData(HandFinger::Ring),
               FingerGrabData(HandFinger::Pinky)}
{
}

void FingerPalmGrabAPI::Update(const data::HandPalmData* data)
{
    witness::noteUpdate(this);
    ClearState();
    if (data == nullptr) {
        return;
    }
    UpdateVolumeCenter(data);
    const Bends bends(data->jointPoses);
    for (FingerGrabData& finger : fingers_) {
        finger.UpdateGrabStrength(bends.curl[toIndex(finger.finger)], bends.flexion[toIndex(finger.finger)]);
        finger.UpdateIsGrabbing(grabThreshold_, releaseThreshold_);
    }
}

bool FingerPalmGrabAPI::GetFingerIsGrabbing(HandFinger finger) const
{
    const FingerGrabData* found = find(finger);
    return found != nullptr && found->isGrabbing;
}

bool FingerPalmGrabAPI::GetFingerIsGrabbingChanged(HandFinger finger, bool targetGrabState) const
{
    const FingerGrabData* found = find(finger);
    return found != nullptr && found->isGrabbingChanged && found->isGrabbing == targetGrabState;
}

float FingerPalmGrabAPI::GetFingerGrabScore(HandFinger finger) const
{
    const FingerGrabData* found = find(finger);
    return found == nullptr ? 0.0f : found->grabStrength;
}

Vector3f FingerPalmGrabAPI::GetCenterOffset()
{
    return centerOffset_;
}

const FingerGrabData* FingerPalmGrabAPI::find(HandFinger finger) const
{
    return toIndex(finger) < fingers_.size() ? &fingers_[toIndex(finger)] : nullptr;
}

void FingerPalmGrabAPI::ClearState()
{
    for (FingerGrabData& finger : fingers_) {
        finger.isGrabbingChanged = false;
    }
}

void FingerPalmGrabAPI::UpdateVolumeCenter(const data::HandPalmData* data)
{
    centerOffset_ = data->handedness != 0 ? centerOffsetHandednessSet_ : centerOffsetHandednessClear_;
}

} // namespace velk::interaction::grab
