// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/Bends.h"

#include "math/Lanes.h"
#include "velk_core/interaction/palmgrab/HandFrame.h"
#include "velk_core/interaction/palmgrab/HandJointUtils.h"
#include "velk_core/interaction/palmgrab/JointTables.h"

#include <cstddef>

namespace velk::interaction::grab
{
namespace
{

// Or the namespace velk::select would hide that of lanes. NOLINTNEXTLINE(misc-unused-using-decls)
using TAL::angles::select;
using Lanes = TAL::lanes::Float<16>;
using Vectors = TAL::Vector3<Lanes>;
using Rotations = TAL::Quat<Lanes>;
using Joints = std::array<HandJointId, Lanes::kCount>;

// Inlined, as vectors that are passed on go through memory: a third of the time.

/// A value of one of the joints, in each lane another joint's.
template <typename Read>
Lanes gather(const FingerShapes::JointPoses& poses, const Joints& joints, const Read& read)
{
    return Lanes::Lanes{read(poses[toIndex(joints[0])]), read(poses[toIndex(joints[1])]),
                        read(poses[toIndex(joints[2])]), read(poses[toIndex(joints[3])])};
}

[[gnu::always_inline]] inline Vectors gatherPositions(const FingerShapes::JointPoses& poses,
                                                      const Joints& joints)
{
    return {gather(poses, joints, [](const Posef& pose) { return pose.translation.x; }),
            gather(poses, joints, [](const Posef& pose) { return pose.translation.y; }),
            gather(poses, joints, [](const Posef& pose) { return pose.translation.z; })};
}

[[gnu::always_inline]] inline Rotations gatherRotations(const FingerShapes::JointPoses& poses,
                                                        const Joints& joints)
{
    return {gather(poses, joints, [](const Posef& pose) { return pose.rotation.x; }),
            gather(poses, joints, [](const Posef& pose) { return pose.rotation.y; }),
            gather(poses, joints, [](const Posef& pose) { return pose.rotation.z; }),
            gather(poses, joints, [](const Posef& pose) { return pose.rotation.w; })};
}

Vectors everywhere(const Vector3f& vector)
{
    return {vector.x, vector.y, vector.z};
}

/// GetVectorSignedAngle().
[[gnu::always_inline]] inline Lanes signedAngle(const Vectors& a, const Vectors& b, const Vectors& axis)
{
    const Lanes cosine = a.Dot(b) / squareRoot(a.LengthSq() * b.LengthSq());
    const Lanes angle = TAL::angles::arcCosOfLanes(cosine) * TAL::kDegreesPerRadian;
    return select(a.Cross(b).Dot(axis) > 0.0f, -angle, angle);
}

/// FingerShapes::PosesCurlValue().
[[gnu::always_inline]] inline Lanes bend(const Vectors& first, const Vectors& middle, const Vectors& last,
                                         const Rotations& rotation)
{
    const Vectors axis = rotation.Rotate(everywhere(Forward)) * -1.0f;
    const Lanes angle = signedAngle(first - middle, last - middle, axis);
    return select(angle < 0.0f, angle + 360.0f, angle);
}

/// FingerShapes::GetFlexionValue().
[[gnu::always_inline]] inline Lanes flex(const Rotations& rotation)
{
    const Vectors projected = rotation.Rotate(everywhere(Up)).ProjectToPlane(everywhere(Forward));
    return 180.0f + signedAngle(everywhere(Up), projected, everywhere(Forward * -1.0f));
}

constexpr std::size_t kThumb = 0;

/// The joint of each finger but the thumb that comes at this place in the list of its bends.
constexpr Joints fingerJoints(std::size_t place)
{
    Joints joints{};
    for (std::size_t i = 0; i < joints.size(); ++i) {
        joints[i] = joint_tables::CURL_ANGLE_JOINTS[i + 1].joints()[place];
    }
    return joints;
}

} // namespace

// The inner bends of four fingers, their outer ones, and both of the thumb with two lanes to spare.
Bends::Bends(const FingerShapes::JointPoses& poses)
{
    constexpr std::array<Joints, 4> kFingers = {fingerJoints(0), fingerJoints(1), fingerJoints(2),
                                                fingerJoints(3)};
    const Vectors first = gatherPositions(poses, kFingers[0]);
    const Vectors second = gatherPositions(poses, kFingers[1]);
    const Vectors third = gatherPositions(poses, kFingers[2]);
    const Vectors fourth = gatherPositions(poses, kFingers[3]);
    const Lanes inner = bend(first, second, third, gatherRotations(poses, kFingers[1]));
    const Lanes outer = bend(second, third, fourth, gatherRotations(poses, kFingers[2]));
    const Lanes curls = (0.0f + inner + outer) / 2.0f; // a sum from 0 on is never -0
    const Lanes flexions = flex(gatherRotations(poses, kFingers[0]));

    const auto thumb = joint_tables::CURL_ANGLE_JOINTS[kThumb].joints();
    const auto pair = [&thumb](std::size_t place) {
        return Joints{thumb[place], thumb[place + 1], thumb[place], thumb[place + 1]};
    };
    const Lanes thumbBends = bend(gatherPositions(poses, pair(0)), gatherPositions(poses, pair(1)),
                                  gatherPositions(poses, pair(2)), gatherRotations(poses, pair(1)));
    curl[kThumb] = (0.0f + thumbBends.lanes[0] + thumbBends.lanes[1]) / 2.0f;
    for (std::size_t i = 0; i < Lanes::kCount; ++i) {
        curl[i + 1] = curls.lanes[i];
        flexion[i + 1] = flexions.lanes[i];
    }
}

} // namespace velk::interaction::grab
