// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"

#include "math/Math.h"
#include "math/Plane.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/pinchgrab/PinchDistances.h"
#include "velk_core/witness/Witness.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velk::interaction::grab
{

using witness::judge;
using witness::judgeFinger;
using witness::Rule;

FingerPinchGrabAPI::FingerPinchGrabAPI()
    : fingers_{FingerPinchData(HandFinger::Thumb), FingerPinchData(HandFinger::Index),
               FingerPinchData(HandFinger::Middle), FingerPinchData(HandFinger::Ring),
               FingerPinchData(HandFinger::Pinky)}
{
}

bool FingerPinchGrabAPI::getFingerIsGrabbing(HandFinger finger)
{
    const FingerPinchData* found = find(finger);
    return found != nullptr && found->isPinching;
}

bool FingerPinchGrabAPI::getFingerIsGrabbingChanged(HandFinger finger, bool targetGrabState)
{
    const FingerPinchData* found = find(finger);
    return found != nullptr && found->isPinchingChanged && found->isPinching == targetGrabState;
}

float FingerPinchGrabAPI::getFingerGrabScore(HandFinger finger)
{
    const FingerPinchData* found = find(finger);
    return found == nullptr ? 0.0f : found->pinchStrength;
}

Vector3f FingerPinchGrabAPI::getCenterOffset()
{
    const FingerPinchData& thumb = fingers_[toIndex(HandFinger::Thumb)];
    float best = thumb.pinchStrength;
    Vector3f result = thumb.tipPosition;
    for (std::size_t i = toIndex(HandFinger::Index); i < fingers_.size(); ++i) {
        if (best < fingers_[i].pinchStrength) {
            best = fingers_[i].pinchStrength;
            result = (thumb.tipPosition + fingers_[i].tipPosition) * 0.5f;
        }
    }
    return result;
}

void FingerPinchGrabAPI::update(const data::HandPinchData* data, const Vector3f* wristDirection,
                                const Vector3f* hmdDirection)
{
    witness::noteUpdate(this);
    ClearState();
    handData_ = *data;
    hasWristDirection_ = wristDirection != nullptr;
    if (hasWristDirection_) {
        wristDirection_ = *wristDirection;
    }
    hasHmdDirection_ = hmdDirection != nullptr;
    if (hasHmdDirection_) {
        hmdDirection_ = *hmdDirection;
    }
    goodView_ = pinchHasGoodVisibility();
    updateThumb();
    const TipDistances tips(handData_);
    for (std::size_t i = 0; i < TipDistances::kCount; ++i) {
        updateFinger(static_cast<HandFinger>(i + 1), tips.isNearThumb[i], tips.toLastBone[i],
                     tips.toBothBones[i]);
    }
}

bool FingerPinchGrabAPI::getJointPosFromWrist(HandJointId joint, Vector3f& out) const
{
    if (toIndex(joint) >= handData_.jointPositions.size()) {
        return false;
    }
    out = handData_.jointPositions[toIndex(joint)];
    return true;
}

float FingerPinchGrabAPI::DistanceStart() const
{
    return goodView_ ? goodViewDistanceStart_ : distanceStart_;
}

float FingerPinchGrabAPI::DistanceStopOffset() const
{
    return goodView_ ? goodViewDistanceStopOffset_ : distanceStopOffset_;
}

float FingerPinchGrabAPI::DistanceStopMax() const
{
    return goodView_ ? goodViewDistanceStopMax_ : distanceStopMax_;
}

float FingerPinchGrabAPI::getClosestDistanceToJoints(Vector3f point,
                                                     const std::vector<HandJointId>& joints) const
{
    float result = PositiveInfinity;
    for (std::size_t i = 1; i < joints.size(); ++i) {
        Vector3f first;
        Vector3f second;
        if (getJointPosFromWrist(joints[i - 1], first) && getJointPosFromWrist(joints[i], second)) {
            result = std::min(result, distancePointToSegment(point, first, second));
        }
    }
    return result;
}

float FingerPinchGrabAPI::getClosestDistanceToJoints(Vector3f segmentStart, Vector3f segmentEnd,
                                                     const std::vector<HandJointId>& joints,
                                                     float alignmentLimit) const
{
    const Vector3f direction = (segmentEnd - segmentStart).Normalized();
    float result = PositiveInfinity;
    for (std::size_t i = 1; i < joints.size(); ++i) {
        Vector3f first;
        Vector3f second;
        if (!getJointPosFromWrist(joints[i - 1], first) || !getJointPosFromWrist(joints[i], second)) {
            continue;
        }
        // A thumb laid along a bone isn't pinching it: only bones that cross or oppose the thumb count.
        if (alignmentLimit < 1.0f && direction.Dot((second - first).Normalized()) >= alignmentLimit) {
            continue;
        }
        result = std::min(result, distanceSegmentToSegment(segmentStart, segmentEnd, first, second));
    }
    return result;
}

bool FingerPinchGrabAPI::IsPointNearThumb(Vector3f point, const std::vector<HandJointId>& joints) const
{
    Vector3f first;
    Vector3f second;
    if (!getJointPosFromWrist(joints[0], first) || !getJointPosFromWrist(joints[1], second)) {
        return false;
    }
    const Vector3f bone = second - first;
    const Vector3f offset = point - first;
    return offset.ProjectTo(bone.Normalized()).Dot(bone) > 0.0f;
}

bool FingerPinchGrabAPI::isThumbNearIndex() const
{
    Vector3f thumbTip;
    Vector3f indexProximal;
    Vector3f indexMid;
    Vector3f indexDistal;
    if (!getJointPosFromWrist(HandJointId::ThumbTip, thumbTip) ||
        !getJointPosFromWrist(HandJointId::IndexProximal, indexProximal) ||
        !getJointPosFromWrist(HandJointId::IndexMid, indexMid) ||
        !getJointPosFromWrist(HandJointId::IndexDistal, indexDistal)) {
        return false;
    }
    const Vector3f normal = (indexDistal - indexMid).Cross(indexProximal - indexMid);
    const math::Plane plane(indexMid, normal);
    const float distance = std::fabs(plane.getSignedDistanceToPlane(thumbTip));
    // Strict on both sides. An exactly straight index finger spans no plane, measures 0 and so is never near.
    constexpr int kThumb = static_cast<int>(HandFinger::Thumb);
    return judgeFinger(Rule::PinchThumbAway, distance > 0.0f, distance, 0.0f, kThumb) &&
           judgeFinger(Rule::PinchThumbNear, distance < thumbDistanceStopMax_, distance,
                       thumbDistanceStopMax_, kThumb);
}

bool FingerPinchGrabAPI::pinchHasGoodVisibility() const
{
    if (!hasWristDirection_ || !hasHmdDirection_) {
        return false;
    }
    const float angle = (wristDirection_ * -1.0f).Angle(hmdDirection_ * -1.0f) * TAL::kDegreesPerRadian;
    return judge(Rule::PinchView, !(maxViewAngle_ < angle), angle, maxViewAngle_);
}

float FingerPinchGrabAPI::distancePointToSegment(Vector3f point, Vector3f start, Vector3f end)
{
    const Vector3f line = end - start;
    const float t = clamp((point - start).Dot(line) / line.Dot(line), 0.0f, 1.0f);
    return (start + t * line - point).Length();
}

float FingerPinchGrabAPI::distanceSegmentToSegment(Vector3f firstStart, Vector3f firstEnd,
                                                   Vector3f secondStart, Vector3f secondEnd)
{
    const Vector3f lineA = firstEnd - firstStart;
    const Vector3f lineB = secondEnd - secondStart;
    const Vector3f normal = lineA.Cross(lineB);

    const Vector3f flatStartA = firstStart.ProjectToPlane(normal);
    const Vector3f flatStartB = secondStart.ProjectToPlane(normal);
    const Vector3f flatLineA = lineA.ProjectToPlane(normal);
    const Vector3f flatLineB = lineB.ProjectToPlane(normal);

    // The triangle of flatStartA, its foot on the second line and the crossing gives the way to the crossing.
    const Vector3f foot = flatStartB + (flatStartA - flatStartB).ProjectTo(flatLineB);
    const Vector3f toFoot = foot - flatStartA;
    const float cosine = flatLineA.Normalized().Dot(toFoot.Normalized());
    // Parallel segments have no normal: everything above is NaN then, and clamp makes it 1.
    const float t = clamp((toFoot.Length() / cosine) / flatLineA.Length(), 0.0f, 1.0f);
    const Vector3f pointA = firstStart + lineA * t;

    Vector3f along = (pointA - secondStart).ProjectTo(lineB);
    if (along.Dot(lineB) < 0.0f) {
        along = Vector3f::Zero();
    } else if (along.LengthSq() > lineB.LengthSq()) {
        along = lineB;
    }
    return pointA.Distance(secondStart + along);
}

float FingerPinchGrabAPI::GetClosestDistanceToThumb(Vector3f point,
                                                    const std::vector<HandJointId>& joints) const
{
    return getClosestDistanceToJoints(point, joints);
}

float FingerPinchGrabAPI::ClosestDistanceToLineSegment(Vector3f point, Vector3f start, Vector3f end) const
{
    return distancePointToSegment(point, start, end);
}

Vector3f FingerPinchGrabAPI::getFingerTipPos(HandJointId joint) const
{
    // Takes a joint's id for a finger's number: ids from 5 on name a joint but no finger.
    return toIndex(joint) < fingers_.size() ? fingers_[toIndex(joint)].tipPosition : Vector3f::Zero();
}

const FingerPinchData* FingerPinchGrabAPI::find(HandFinger finger) const
{
    return toIndex(finger) < fingers_.size() ? &fingers_[toIndex(finger)] : nullptr;
}

void FingerPinchGrabAPI::ClearState()
{
    for (FingerPinchData& finger : fingers_) {
        finger.ClearState();
    }
}

void FingerPinchGrabAPI::updateThumb()
{
    updateFingerTip(HandFinger::Thumb);
    float distance = PositiveInfinity;
    if (isThumbNearIndex()) {
        distance = measureThumbToIndex(handData_, thumbAlignmentLimit_);
    }
    updatePinchData(distance, HandFinger::Thumb, thumbDistanceStart_, thumbDistanceStopOffset_,
                    thumbDistanceStopMax_);
}

void FingerPinchGrabAPI::updateFinger(HandFinger finger, bool isNearThumb, float toLastBone,
                                      float toBothBones)
{
    updateFingerTip(finger);
    const FingerPinchData& data = fingers_[toIndex(finger)];
    float distance = PositiveInfinity;
    // Only a pinch that stands is measured against the bone before the distal joint: a fingertip can slide
    // back over that joint without letting go, but can't start there.
    if (data.isPinching) {
        distance = toBothBones;
    }
    if (judgeFinger(Rule::PinchSide, isNearThumb, witness::kNoNumber, witness::kNoNumber,
                    static_cast<int>(finger))) {
        distance = toLastBone;
    }
    updatePinchData(distance, finger, DistanceStart(), DistanceStopOffset(), DistanceStopMax());
}

void FingerPinchGrabAPI::updateFingerTip(HandFinger finger)
{
    if (toIndex(finger) < fingers_.size()) {
        FingerPinchData& data = fingers_[toIndex(finger)];
        data.UpdateTipPosition(handData_.jointPositions[toIndex(data.GetTipID())]);
    }
}

void FingerPinchGrabAPI::updatePinchData(float distance, HandFinger finger, float start, float stopOffset,
                                         float stopMax)
{
    FingerPinchData& data = fingers_[toIndex(finger)];
    data.UpdateIsPinching(distance, start, stopOffset, stopMax);
    data.pinchStrength = 1.0f - clamp((distance - start) / (stopMax - start), 0.0f, 1.0f);
}

} // namespace velk::interaction::grab
