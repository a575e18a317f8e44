// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/HandFrame.h"

namespace velk::interaction::grab
{

TAL::Vector3<float> GetUpVector(const TAL::Pose<float>& pose)
{
    return pose.Rotate(Up);
}

TAL::Vector3<float> GetForwardVector(const TAL::Pose<float>& pose)
{
    return pose.Rotate(Forward);
}

float GetVectorSignedAngle(TAL::Vector3<float> a, TAL::Vector3<float> b, TAL::Vector3<float> axis)
{
    const float angle = a.Angle(b) * kDegreesPerRadian;
    return a.Cross(b).Dot(axis) > 0.0f ? -angle : angle;
}

} // namespace velk::interaction::grab
