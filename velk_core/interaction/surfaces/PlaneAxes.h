// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "math/Lanes.h"

namespace velk::interaction::surface
{

/// What a rotation makes of the three axes, turned side by side: each has its coordinates in the first three
/// of four lanes.
class PlaneAxes
{
public:
    using Lanes = TAL::lanes::Float<16>;

    PlaneAxes()
        : PlaneAxes(Quatf())
    {
    }
    explicit PlaneAxes(const Quatf& rotation)
        : PlaneAxes(
              TAL::Quat<Lanes>(rotation.x, rotation.y, rotation.z, rotation.w)
                  .Rotate({lanesOf(1.0f, 0.0f, 0.0f), lanesOf(0.0f, 1.0f, 0.0f), lanesOf(0.0f, 0.0f, 1.0f)}))
    {
    }

    Vector3f getX() const { return vectorOf(x_); }
    Vector3f getY() const { return vectorOf(y_); }
    Vector3f getZ() const { return vectorOf(z_); }

    const Lanes& getXLanes() const { return x_; }
    const Lanes& getYLanes() const { return y_; }
    const Lanes& getZLanes() const { return z_; }

    static Lanes lanesOf(float x, float y, float z) { return Lanes::Lanes{x, y, z, 0.0f}; }

private:
    // Of all three axes, each coordinate has a vector here.
    explicit PlaneAxes(const TAL::Vector3<Lanes>& turned)
        : x_(column(turned, 0))
        , y_(column(turned, 1))
        , z_(column(turned, 2))
    {
    }

    static Lanes column(const TAL::Vector3<Lanes>& turned, int axis)
    {
        return lanesOf(turned.x.lanes[axis], turned.y.lanes[axis], turned.z.lanes[axis]);
    }
    static Vector3f vectorOf(const Lanes& axis) { return {axis.lanes[0], axis.lanes[1], axis.lanes[2]}; }

    Lanes x_;
    Lanes y_;
    Lanes z_;
};

} // namespace velk::interaction::surface
