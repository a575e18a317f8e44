// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/AxisAlignedBox.h"
#include "math/Pose.h"
#include "math/Vector3.h"
#include "velk_core/core/IPose.h"

#include <memory>

namespace velk::interaction::surface
{

/// A box that narrows a surface. Its centre moves with a frame of its own; its sides stay along the
/// axes of the surface, however that frame is turned.
class BoundsClipper
{
public:
    /// `position` is the centre in the frame of `poseSource`, `size` the full size. Shares ownership of
    /// `poseSource`, which must not be null.
    BoundsClipper(std::shared_ptr<velk::input::IPose> poseSource, const TAL::Vector3<float>& position,
                  const TAL::Vector3<float>& size);

    /// The box in the frame of a surface at `surfacePose`. Always true.
    bool getLocalBounds(const TAL::Pose<float>& surfacePose, velk::math::AxisAlignedBox& bounds) const;

private:
    std::shared_ptr<velk::input::IPose> poseSource_;
    TAL::Vector3<float> position_;
    TAL::Vector3<float> size_;
};

} // namespace velk::interaction::surface
