// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/search/Box.h"
#include "velk_core/interaction/search/Lanes.h"

#include <array>
#include <cstdint>

namespace velk::interaction::search
{

/// All that meets a box round a point or a way.
struct PointQuery
{
    Box box;
};

/// A half-line, widened by a slack against rounding. The direction has no component of zero.
struct RayQuery
{
    RayQuery(const Vector3f& origin, const Vector3f& direction, float slack)
        : behind{origin.x - slack, origin.y - slack, origin.z - slack}
        , ahead{origin.x + slack, origin.y + slack, origin.z + slack}
        , inverse{1.0f / direction.x, 1.0f / direction.y, 1.0f / direction.z}
    {
    }

    std::array<float, 3> behind;
    std::array<float, 3> ahead;
    std::array<float, 3> inverse;
};

/// Eight boxes that are searched side by side. The search yields one bit for each; those of lanes that hold
/// no box mean nothing.
struct BoxBlock
{
    static constexpr int kSize = 8;

    alignas(16) float lower[3][kSize]{};
    alignas(16) float upper[3][kSize]{};

    BoxBlock()
    {
        for (int lane = 0; lane < kSize; ++lane) {
            set(lane, Box());
        }
    }

    void set(int lane, const Box& box)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            lower[axis][lane] = box.lower[axis];
            upper[axis][lane] = box.upper[axis];
        }
    }

    Box get(int lane) const
    {
        return {{lower[0][lane], lower[1][lane], lower[2][lane]},
                {upper[0][lane], upper[1][lane], upper[2][lane]}};
    }

    uint32_t search(const PointQuery& query) const
    {
        uint32_t found = 0;
        for (int first = 0; first < kSize; first += Lanes::kCount) {
            uint32_t inside = ~0u;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                inside &= Lanes::lessOrEqual(Lanes::load(&lower[axis][first]), Lanes(query.box.upper[axis]));
                inside &= Lanes::lessOrEqual(Lanes(query.box.lower[axis]), Lanes::load(&upper[axis][first]));
            }
            found |= inside << first;
        }
        return found;
    }

    /// The slab method, see AxisAlignedBox::raycast.
    uint32_t search(const RayQuery& query) const
    {
        uint32_t found = 0;
        for (int first = 0; first < kSize; first += Lanes::kCount) {
            Lanes enter(0.0f);
            Lanes leave(Box::kEndless);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                const Lanes inverse(query.inverse[axis]);
                const Lanes a = (Lanes::load(&lower[axis][first]) - Lanes(query.ahead[axis])) * inverse;
                const Lanes b = (Lanes::load(&upper[axis][first]) - Lanes(query.behind[axis])) * inverse;
                enter = Lanes::max(enter, Lanes::min(a, b));
                leave = Lanes::min(leave, Lanes::max(a, b));
            }
            found |= Lanes::lessOrEqual(enter, leave) << first;
        }
        return found;
    }
};

} // namespace velk::interaction::search
