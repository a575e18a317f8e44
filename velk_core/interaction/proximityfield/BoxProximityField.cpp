// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/proximityfield/BoxProximityField.h"

#include "math/Math.h"

#include <algorithm>
#include <limits>

namespace velk::interaction::proximity_field
{

BoxProximityField::BoxProximityField(const Posef& pose, const Vector3f& size)
    : pose_(pose)
{
    setSize(size);
}

void BoxProximityField::setPose(const Posef& pose)
{
    pose_ = pose;
}

void BoxProximityField::setSize(const Vector3f& size)
{
    // The first operand wins against a NaN.
    constexpr float kThinnest = std::numeric_limits<float>::epsilon();
    size_ = Vector3f(std::max(kThinnest, size.x), std::max(kThinnest, size.y), std::max(kThinnest, size.z));
}

Vector3f BoxProximityField::computeClosestPoint(const Vector3f& point)
{
    // Turns the cube of half-width 0.5 at the origin into the field.
    Matrix4f worldFromCube(pose_);
    worldFromCube *= Matrix4f::Scaling(size_);

    Vector3f local = worldFromCube.Inverted().Transform(point);
    local.x = clamp<float>(local.x, -0.5f, 0.5f);
    local.y = clamp<float>(local.y, -0.5f, 0.5f);
    local.z = clamp<float>(local.z, -0.5f, 0.5f);
    return worldFromCube.Transform(local);
}

} // namespace velk::interaction::proximity_field
