// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/pinchgrab/PinchDistances.h"

#include "math/Lanes.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"

namespace velk::interaction::grab
{
namespace
{

// Or the namespace velk::select would hide that of lanes. NOLINTNEXTLINE(misc-unused-using-decls)
using TAL::angles::select;
using Lanes = TAL::lanes::Float<16>;
using Vectors = TAL::Vector3<Lanes>;
using Joints = std::array<HandJointId, Lanes::kCount>;

using enum HandJointId;

Vectors gather(const data::HandPinchData& hand, const Joints& joints)
{
    const auto at = [&](std::size_t i) -> const Vector3f& { return hand.jointPositions[toIndex(joints[i])]; };
    return {Lanes::Lanes{at(0).x, at(1).x, at(2).x, at(3).x},
            Lanes::Lanes{at(0).y, at(1).y, at(2).y, at(3).y},
            Lanes::Lanes{at(0).z, at(1).z, at(2).z, at(3).z}};
}

Vectors everywhere(const Vector3f& vector)
{
    return {vector.x, vector.y, vector.z};
}

Lanes length(const Vectors& vectors)
{
    return squareRoot(vectors.LengthSq());
}

/// Vector3::Normalized().
Vectors normalized(const Vectors& vectors)
{
    const Lanes size = length(vectors);
    return vectors * select(size == 0.0f, size, 1.0f / size);
}

Lanes clampToUnit(const Lanes& value)
{
    const Lanes least = select(value < 1.0f, value, 1.0f); // 1 for a NaN
    return select(least > 0.0f, least, 0.0f);
}

/// FingerPinchGrabAPI::distancePointToSegment().
Lanes distanceToSegment(const Vectors& point, const Vector3f& start, const Vector3f& end)
{
    const Vector3f line = end - start;
    const Lanes t = clampToUnit((point - everywhere(start)).Dot(everywhere(line)) / line.Dot(line));
    return length(everywhere(start) + everywhere(line) * t - point);
}

/// FingerPinchGrabAPI::distanceSegmentToSegment().
Lanes distanceToSegments(const Vectors& firstStart, const Vectors& firstEnd, const Vectors& secondStart,
                         const Vectors& secondEnd)
{
    const Vectors lineA = firstEnd - firstStart;
    const Vectors lineB = secondEnd - secondStart;
    const Vectors normal = lineA.Cross(lineB);

    const Vectors flatStartA = firstStart.ProjectToPlane(normal);
    const Vectors flatStartB = secondStart.ProjectToPlane(normal);
    const Vectors flatLineA = lineA.ProjectToPlane(normal);
    const Vectors flatLineB = lineB.ProjectToPlane(normal);

    const Vectors foot = flatStartB + (flatStartA - flatStartB).ProjectTo(flatLineB);
    const Vectors toFoot = foot - flatStartA;
    const Lanes cosine = normalized(flatLineA).Dot(normalized(toFoot));
    const Lanes t = clampToUnit((length(toFoot) / cosine) / length(flatLineA));
    const Vectors pointA = firstStart + lineA * t;

    const Vectors along = (pointA - secondStart).ProjectTo(lineB);
    const auto isBefore = along.Dot(lineB) < 0.0f;
    const auto isBeyond = along.LengthSq() > lineB.LengthSq();
    const auto within = [&](const Lanes& inside, const Lanes& end) {
        return select(isBefore, 0.0f, select(isBeyond, end, inside));
    };
    return length(pointA - (secondStart + Vectors(within(along.x, lineB.x), within(along.y, lineB.y),
                                                  within(along.z, lineB.z))));
}

} // namespace

TipDistances::TipDistances(const data::HandPinchData& hand)
{
    const auto position = [&hand](HandJointId joint) -> const Vector3f& {
        return hand.jointPositions[toIndex(joint)];
    };
    const Vector3f& proximal = position(ThumbProximal);
    const Vector3f& distal = position(ThumbDistal);
    const Vector3f& thumbTip = position(ThumbTip);
    const Vectors tips = gather(hand, {IndexTip, MiddleTip, RingTip, PinkyTip});

    const Vector3f bone = thumbTip - distal;
    const Vectors offset = tips - everywhere(distal);
    const auto isNear = offset.ProjectTo(everywhere(bone.Normalized())).Dot(everywhere(bone)) > 0.0f;

    const Lanes last = distanceToSegment(tips, distal, thumbTip);
    const Lanes before = distanceToSegment(tips, proximal, distal);
    const Lanes closest = select(last < PositiveInfinity, last, PositiveInfinity);
    const Lanes first = select(before < PositiveInfinity, before, PositiveInfinity);
    const Lanes both = select(last < first, last, first);
    for (std::size_t i = 0; i < kCount; ++i) {
        isNearThumb[i] = isNear[i] != 0;
        toLastBone[i] = closest.lanes[i];
        toBothBones[i] = both.lanes[i];
    }
}

// The three bones of the index finger, with a lane to spare.
float measureThumbToIndex(const data::HandPinchData& hand, float alignmentLimit)
{
    constexpr std::size_t kBones = 3;
    const Vector3f& start = hand.jointPositions[toIndex(ThumbDistal)];
    const Vector3f& end = hand.jointPositions[toIndex(ThumbTip)];
    const Vectors first = gather(hand, {IndexProximal, IndexMid, IndexDistal, IndexDistal});
    const Vectors second = gather(hand, {IndexMid, IndexDistal, IndexTip, IndexTip});
    const Lanes distances = distanceToSegments(everywhere(start), everywhere(end), first, second);

    // A thumb laid along a bone isn't pinching it: only bones that cross or oppose the thumb count.
    const Lanes alignment = everywhere((end - start).Normalized()).Dot(normalized(second - first));
    float result = PositiveInfinity;
    for (std::size_t i = 0; i < kBones; ++i) {
        const bool isAlong = alignmentLimit < 1.0f && alignment.lanes[i] >= alignmentLimit;
        if (!isAlong && distances.lanes[i] < result) {
            result = distances.lanes[i];
        }
    }
    return result;
}

} // namespace velk::interaction::grab
