// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/FingerGrabData.h"

#include "math/Math.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/witness/Witness.h"

#include <array>

namespace velk::interaction::grab
{
namespace
{

/// Degrees at which a finger's strength leaves 0 and at which it reaches 1.
struct CurlRange
{
    float from;
    float to;
};

constexpr std::array<CurlRange, kNumHandFingers> kCurlRanges = {
    {{190.0f, 220.0f}, {180.0f, 250.0f}, {180.0f, 250.0f}, {180.0f, 250.0f}, {180.0f, 245.0f}}};

} // namespace

FingerGrabData::FingerGrabData(HandFinger which)
    : finger(which)
{
    const CurlRange range = kCurlRanges[toIndex(which)];
    curlNormalizationParams.x = range.from;
    curlNormalizationParams.y = range.to - range.from;
}

void FingerGrabData::UpdateGrabStrength(const data::HandPalmData* data, const FingerShapes& shapes)
{
    const float flexion =
        finger != HandFinger::Thumb ? shapes.GetFlexionValue(finger, data->jointPoses) : 0.0f;
    UpdateGrabStrength(shapes.GetCurlValue(finger, data->jointPoses), flexion);
}

void FingerGrabData::UpdateGrabStrength(float curl, float flexion)
{
    float value = curl;
    if (finger != HandFinger::Thumb) {
        value = (2.0f * curl + flexion) / 3.0f;
    }
    // clamp turns NaN into 1: a finger with coincident joints reads as closed.
    grabStrength = clamp((value - curlNormalizationParams.x) / curlNormalizationParams.y, 0.0f, 1.0f);
}

void FingerGrabData::UpdateIsGrabbing(float grabThreshold, float releaseThreshold)
{
    const auto judge = [this](witness::Rule rule, bool holds, float limit) {
        return witness::judgeFinger(rule, holds, grabStrength, limit, static_cast<int>(finger));
    };
    if (judge(witness::Rule::PalmStart, grabStrength > grabThreshold, grabThreshold)) {
        if (!isGrabbing) {
            isGrabbing = true;
            isGrabbingChanged = true;
        }
    } else if (isGrabbing &&
               judge(witness::Rule::PalmEnd, releaseThreshold > grabStrength, releaseThreshold)) {
        isGrabbing = false;
        isGrabbingChanged = true;
    }
}

} // namespace velk::interaction::grab
