// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/FingerShapes.h"

#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/palmgrab/JointTables.h"

#include <cstddef>
#include <span>

namespace velk::interaction::grab
{
namespace
{

using JointPoses = FingerShapes::JointPoses;

std::span<const HandJointId> jointsAffected(HandFinger finger, FingerFeature feature)
{
    const std::size_t index = toIndex(finger);
    switch (feature) {
    case FingerFeature::Curl:
        return joint_tables::CURL_LINE_JOINTS[index].joints();
    case FingerFeature::Flexion:
        return joint_tables::FLEXION_LINE_JOINTS[index].joints();
    case FingerFeature::Abduction:
        return joint_tables::ABDUCTION_LINE_JOINTS[index].joints();
    case FingerFeature::Opposition:
        return joint_tables::OPPOSITION_LINE_JOINTS[index].joints();
    }
    return {};
}

float sumOfBends(const FingerShapes& shapes, std::span<const HandJointId> joints, const JointPoses& poses)
{
    float sum = 0.0f;
    for (std::size_t i = 0; i + 2 < joints.size(); ++i) {
        sum += shapes.PosesCurlValue(poses[toIndex(joints[i])], poses[toIndex(joints[i + 1])],
                                     poses[toIndex(joints[i + 2])]);
    }
    return sum;
}

} // namespace

std::vector<HandJointId> GetJointsAffected(HandFinger finger, FingerFeature feature)
{
    const std::span<const HandJointId> joints = jointsAffected(finger, feature);
    return {joints.begin(), joints.end()};
}

float FingerShapes::GetValue(HandFinger finger, FingerFeature feature, const JointPoses& poses) const
{
    switch (feature) {
    case FingerFeature::Curl:
        return GetCurlValue(finger, poses);
    case FingerFeature::Flexion:
        return GetFlexionValue(finger, poses);
    case FingerFeature::Abduction:
        return GetAbductionValue(finger, poses);
    case FingerFeature::Opposition:
        return GetOppositionValue(finger, poses);
    }
    return 0.0f;
}

float FingerShapes::GetCurlValue(HandFinger finger, const JointPoses& poses) const
{
    const std::span<const HandJointId> joints = joint_tables::CURL_ANGLE_JOINTS[toIndex(finger)].joints();
    return sumOfBends(*this, joints, poses) / static_cast<float>(joints.size() - 2);
}

float FingerShapes::GetFlexionValue(HandFinger finger, const JointPoses& poses) const
{
    const HandJointId knuckle = joint_tables::KNUCKLE_JOINTS[toIndex(finger)];
    const Vector3f jointUp = GetUpVector(poses[toIndex(knuckle)]);
    const Vector3f projected = jointUp.ProjectToPlane(Forward);
    return 180.0f + GetVectorSignedAngle(Up, projected, Forward * -1.0f);
}

float FingerShapes::GetAbductionValue(HandFinger finger, const JointPoses& poses) const
{
    if (finger == HandFinger::Pinky) {
        return 0.0f;
    }
    const auto position = [&poses](HandJointId joint) { return poses[toIndex(joint)].translation; };
    const HandFinger next = static_cast<HandFinger>(static_cast<int>(finger) + 1);
    const Vector3f proximal = position(HandJointUtils::getHandFingerProximal(finger));
    const Vector3f nextProximal = position(HandJointUtils::getHandFingerProximal(next));
    const Vector3f mid = proximal.Lerp(nextProximal, 0.5f);
    // The thumb's vector starts at its own joint, a finger's at the midpoint: their spreads don't compare.
    const Vector3f start = finger == HandFinger::Thumb ? proximal : mid;
    const Vector3f tipVector = position(HandJointUtils::getHandFingerTip(finger)) - start;
    const Vector3f nextVector = position(HandJointUtils::getHandFingerTip(next)) - mid;
    return GetVectorSignedAngle(tipVector, nextVector, tipVector.Cross(nextVector));
}

float FingerShapes::GetOppositionValue(HandFinger finger, const JointPoses& poses) const
{
    if (finger == HandFinger::Thumb) {
        return 0.0f;
    }
    const Vector3f tip = poses[toIndex(HandJointUtils::getHandFingerTip(finger))].translation;
    return (tip - poses[toIndex(HandJointId::ThumbTip)].translation).Length();
}

float FingerShapes::JointsCurlValue(const std::vector<HandJointId>& joints, const JointPoses& poses) const
{
    return sumOfBends(*this, joints, poses);
}

float FingerShapes::PosesListCurlValue(const JointPoses& poses) const
{
    float sum = 0.0f;
    for (std::size_t i = 0; i + 2 < poses.size(); ++i) {
        sum += PosesCurlValue(poses[i], poses[i + 1], poses[i + 2]);
    }
    return sum;
}

float FingerShapes::PosesCurlValue(const Posef& first, const Posef& middle, const Posef& last) const
{
    const Vector3f a = first.translation - middle.translation;
    const Vector3f b = last.translation - middle.translation;
    const Vector3f axis = GetForwardVector(middle) * -1.0f;
    const float angle = GetVectorSignedAngle(a, b, axis);
    return angle < 0.0f ? angle + 360.0f : angle;
}

} // namespace velk::interaction::grab
