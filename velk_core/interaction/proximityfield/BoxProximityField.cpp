// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/proximityfield/BoxProximityField.h"

#include "math/Math.h"
#include "math/Matrix4.h"

#include <algorithm>
#include <limits>

namespace velk::interaction::proximity_field
{

BoxProximityField::BoxProximityField(const TAL::Pose<float>& pose, const TAL::Vector3<float>& size)
    : pose_(pose)
{
    setSize(size);
}

void BoxProximityField::setPose(const TAL::Pose<float>& pose)
{
    pose_ = pose;
}

void BoxProximityField::setSize(const TAL::Vector3<float>& size)
{
    // The first operand wins against a NaN.
    constexpr float kThinnest = std::numeric_limits<float>::epsilon();
    size_ = TAL::Vector3<float>(std::max(kThinnest, size.x), std::max(kThinnest, size.y),
                                std::max(kThinnest, size.z));
}

TAL::Vector3<float> BoxProximityField::computeClosestPoint(const TAL::Vector3<float>& point)
{
    // Turns the cube of half-width 0.5 at the origin into the field.
    TAL::Matrix4<float> worldFromCube(pose_);
    worldFromCube *= TAL::Matrix4<float>::Scaling(size_);

    TAL::Vector3<float> local = worldFromCube.Inverted().Transform(point);
    local.x = clamp<float>(local.x, -0.5f, 0.5f);
    local.y = clamp<float>(local.y, -0.5f, 0.5f);
    local.z = clamp<float>(local.z, -0.5f, 0.5f);
    return worldFromCube.Transform(local);
}

} // namespace velk::interaction::proximity_field
