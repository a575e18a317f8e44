// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandJointId.h"
#include "velk_core/data/HandPinchData.h"
#include "velk_core/interaction/pinchgrab/FingerPinchData.h"
#include "velk_core/interaction/pinchgrab/IFingerApi.h"

#include <vector>

namespace velk::interaction::grab
{

/// Decides per finger whether it pinches against the thumb, from joint positions alone. Distances are in the
/// positions' units, and the thresholds are made for metres. A finger is measured from its tip to the thumb's
/// last bones, the thumb from its last bone to the index finger's bones. With the hand in good view a pinch
/// has to be closer to start, and ends sooner. No function resets a pinch.
class FingerPinchGrabAPI : public IFingerApi
{
public:
    FingerPinchGrabAPI();

    /// False for `NoFinger`, and for any number that is no finger, here and below.
    bool getFingerIsGrabbing(HandFinger finger) override;
    bool getFingerIsGrabbingChanged(HandFinger finger, bool targetGrabState) override;
    /// 0 for `NoFinger`. 1 at the start distance and below, 0 at the stop ceiling and above, whatever the
    /// state.
    float getFingerGrabScore(HandFinger finger) override;
    /// Midway between the thumb tip and the tip with the highest score, or the thumb tip if none beats the
    /// thumb's.
    Vector3f getCenterOffset() override;
    void update(const data::HandPinchData* data, const Vector3f* wristDirection,
                const Vector3f* hmdDirection) override;

    /// False, with `out` left alone, for a joint that doesn't exist.
    bool getJointPosFromWrist(HandJointId joint, Vector3f& out) const;

    float DistanceStart() const;
    float DistanceStopOffset() const;
    float DistanceStopMax() const;

    /// Least distance from a point to the bones between `joints`.
    float getClosestDistanceToJoints(Vector3f point, const std::vector<HandJointId>& joints) const;

    /// Least distance from a segment to the bones between `joints`. With a limit below 1, a bone whose
    /// direction has a dot product with the segment's of the limit or more doesn't count.
    float getClosestDistanceToJoints(Vector3f segmentStart, Vector3f segmentEnd,
                                     const std::vector<HandJointId>& joints, float alignmentLimit) const;

    /// A side test and no distance test: true for a point on the tip side of the plane that stands on the
    /// bone at its first joint.
    bool IsPointNearThumb(Vector3f point, const std::vector<HandJointId>& joints) const;

    /// The thumb tip's distance to the plane of the index finger is above 0 and below the thumb's stop
    /// ceiling.
    bool isThumbNearIndex() const;

    /// Both directions were given in this update and lie within the view angle. A NaN angle counts as good.
    bool pinchHasGoodVisibility() const;

    /// A zero-length segment measures to its end.
    static float distancePointToSegment(Vector3f point, Vector3f start, Vector3f end);

    /// From the point of the first segment where it crosses the second, seen along their common normal, to
    /// the second. That isn't the least distance for all segments, and parallel ones measure from `firstEnd`.
    static float distanceSegmentToSegment(Vector3f firstStart, Vector3f firstEnd, Vector3f secondStart,
                                          Vector3f secondEnd);

    float GetClosestDistanceToThumb(Vector3f point, const std::vector<HandJointId>& joints) const;
    float ClosestDistanceToLineSegment(Vector3f point, Vector3f start, Vector3f end) const;

    /// The stored tip of the finger with the number of `joint`; zero where there is no such finger.
    Vector3f getFingerTipPos(HandJointId joint) const;

private:
    const FingerPinchData* find(HandFinger finger) const;
    void ClearState();
    void updateThumb();
    void updateFinger(HandFinger finger, bool isNearThumb, float toLastBone, float toBothBones);
    void updateFingerTip(HandFinger finger);
    void updatePinchData(float distance, HandFinger finger, float start, float stopOffset, float stopMax);

    // Distances in metres.
    float distanceStart_ = 0.02f;
    float distanceStopMax_ = 0.1f;
    float distanceStopOffset_ = 0.04f;
    float goodViewDistanceStart_ = 0.016f;
    float goodViewDistanceStopMax_ = 0.1f;
    float goodViewDistanceStopOffset_ = 0.016f;
    float maxViewAngle_ = 40.0f; // degrees
    float thumbDistanceStart_ = 0.03f;
    float thumbDistanceStopMax_ = 0.05f; // also how far from the index finger's plane the thumb tip may be
    float thumbDistanceStopOffset_ = 0.04f;
    float thumbAlignmentLimit_ = 0.5f; // dot product: 60 degrees
    std::vector<FingerPinchData> fingers_;
    data::HandPinchData handData_;
    Vector3f wristDirection_;
    Vector3f hmdDirection_;
    bool hasWristDirection_ = false;
    bool hasHmdDirection_ = false;
    bool goodView_ = false;
};

} // namespace velk::interaction::grab
