// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/AxisAlignedBox.h"
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
    BoundsClipper(std::shared_ptr<velk::input::IPose> poseSource, const Vector3f& position,
                  const Vector3f& size);

    /// The box in the frame of a surface at `surfacePose`. Always true.
    bool getLocalBounds(const Posef& surfacePose, velk::math::AxisAlignedBox& bounds) const;

    velk::input::IPose& getPoseSource() const { return *poseSource_; }

private:
    std::shared_ptr<velk::input::IPose> poseSource_;
    Vector3f position_;
    Vector3f size_;
};

} // namespace velk::interaction::surface
