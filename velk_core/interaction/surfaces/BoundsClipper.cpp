// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/BoundsClipper.h"

#include <utility>

namespace velk::interaction::surface
{

BoundsClipper::BoundsClipper(std::shared_ptr<velk::input::IPose> poseSource, const Vector3f& position,
                             const Vector3f& size)
    : poseSource_(std::move(poseSource))
    , position_(position)
    , size_(size)
{
}

bool BoundsClipper::getLocalBounds(const Posef& surfacePose, velk::math::AxisAlignedBox& bounds) const
{
    const Vector3f world = poseSource_->getPose().Transform(position_);
    const Vector3f local = surfacePose.InverseTransform(world);
    bounds = velk::math::AxisAlignedBox(local, size_);
    return true;
}

} // namespace velk::interaction::surface
