// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/palmgrab/HandFrame.h"

#include "math/Math.h"

namespace velk::interaction::grab
{

Vector3f GetUpVector(const Posef& pose)
{
    return pose.Rotate(Up);
}

Vector3f GetForwardVector(const Posef& pose)
{
    return pose.Rotate(Forward);
}

float GetVectorSignedAngle(Vector3f a, Vector3f b, Vector3f axis)
{
    const float angle = a.Angle(b) * TAL::kDegreesPerRadian;
    return a.Cross(b).Dot(axis) > 0.0f ? -angle : angle;
}

} // namespace velk::interaction::grab
