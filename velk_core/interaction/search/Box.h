// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

#include <array>
#include <limits>

namespace velk::interaction::search
{

/// A box along the axes of the world, somewhat larger than what it stands for.
struct Box
{
    static constexpr float kEndless = std::numeric_limits<float>::infinity();

    /// One more than there are axes, so that either fills a register.
    using Corner = std::array<float, 4>;

    alignas(16) Corner lower{kEndless, kEndless, kEndless};
    alignas(16) Corner upper{-kEndless, -kEndless, -kEndless};

    void add(const Vector3f& point) { add({{point.x, point.y, point.z}, {point.x, point.y, point.z}}); }
    void add(const Box& box)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            lower[axis] = box.lower[axis] < lower[axis] ? box.lower[axis] : lower[axis];
            upper[axis] = box.upper[axis] > upper[axis] ? box.upper[axis] : upper[axis];
        }
    }
    void grow(float by)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            lower[axis] -= by;
            upper[axis] += by;
        }
    }

    /// Half the area of its faces: about how many of all rays meet it.
    float halfArea() const
    {
        const float x = upper[0] - lower[0];
        const float y = upper[1] - lower[1];
        const float z = upper[2] - lower[2];
        return x * y + y * z + z * x;
    }

    bool operator==(const Box&) const = default;
};

} // namespace velk::interaction::search
