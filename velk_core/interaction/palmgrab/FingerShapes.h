// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandJointId.h"
#include "velk_core/interaction/palmgrab/FingerFeature.h"

#include <array>
#include <vector>

namespace velk::interaction::grab
{

/// The joints that a feature of a finger depends on; none for a feature that isn't known.
std::vector<HandJointId> GetJointsAffected(HandFinger finger, FingerFeature feature);

/// Measures how a finger is held. All poses must be in one space, each joint's local Z along the axis that
/// its finger bends about. Results are degrees, apart from the opposition. Coincident joints yield NaN.
/// `finger` is used as an index: `NoFinger` must not be passed.
class FingerShapes
{
public:
    using JointPoses = std::array<Posef, kNumHandJoints>;

    virtual ~FingerShapes() = default;

    /// 0 for a feature that isn't known.
    virtual float GetValue(HandFinger finger, FingerFeature feature, const JointPoses& poses) const;

    /// Mean bend of the finger's two inner joints: 180 when straight, more as it closes.
    float GetCurlValue(HandFinger finger, const JointPoses& poses) const;

    /// Bend of the knuckle, 180 when straight. Measured against the space of the poses, so it changes when
    /// the whole hand turns: that space must be the hand's own.
    float GetFlexionValue(HandFinger finger, const JointPoses& poses) const;

    /// Spread to the next finger towards the little one, never above 0 but for parallel vectors; 0 for
    /// `Pinky`.
    float GetAbductionValue(HandFinger finger, const JointPoses& poses) const;

    /// Distance from fingertip to thumb tip, in the poses' units; 0 for `Thumb`.
    float GetOppositionValue(HandFinger finger, const JointPoses& poses) const;

    /// Sum of the bends over each three joints that follow each other.
    float JointsCurlValue(const std::vector<HandJointId>& joints, const JointPoses& poses) const;

    /// The same over all joints of the hand in their order.
    float PosesListCurlValue(const JointPoses& poses) const;

    /// The bend at `middle`, 0 up to 360. `middle`'s local Z decides which side counts as closing.
    float PosesCurlValue(const Posef& first, const Posef& middle, const Posef& last) const;
};

} // namespace velk::interaction::grab
