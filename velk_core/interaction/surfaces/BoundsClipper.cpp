// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/surfaces/BoundsClipper.h"

#include <utility>

namespace velk::interaction::surface
{

BoundsClipper::BoundsClipper(std::shared_ptr<velk::input::IPose> poseSource,
                             const TAL::Vector3<float>& position, const TAL::Vector3<float>& size)
    : poseSource_(std::move(poseSource))
    , position_(position)
    , size_(size)
{
}

bool BoundsClipper::getLocalBounds(const TAL::Pose<float>& surfacePose,
                                   velk::math::AxisAlignedBox& bounds) const
{
    const TAL::Vector3<float> world = poseSource_->getPose().Transform(position_);
    const TAL::Vector3<float> local = surfacePose.InverseTransform(world);
    bounds = velk::math::AxisAlignedBox(local, size_);
    return true;
}

} // namespace velk::interaction::surface
