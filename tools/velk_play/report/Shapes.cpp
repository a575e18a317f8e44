// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "report/Shapes.h"

#include <fmt/format.h>

#include "host/scene/PatchGeometry.h"

namespace velk_tools
{

namespace
{

constexpr Area kSquare{-0.12f, 0.12f, -0.12f, 0.12f}; // drawn for a patch without clippers

std::vector<Vec3> rectangle(const Pose& pose, const Area& area)
{
    std::vector<Vec3> corners;
    for (const Vec3 local : {Vec3{area.left, area.bottom, 0},
                             {area.right, area.bottom, 0},
                             {area.right, area.top, 0},
                             {area.left, area.top, 0}}) {
        corners.push_back(transform(pose, local));
    }
    return corners;
}

} // namespace

std::vector<Vec3> cornersOf(const Panel& panel)
{
    return rectangle(panel.pose, {-panel.halfSize.x, panel.halfSize.x, -panel.halfSize.y, panel.halfSize.y});
}

std::vector<Vec3> cornersOf(const Box& box)
{
    std::vector<Vec3> corners;
    for (const float x : {-0.5f, 0.5f}) {
        for (const float y : {-0.5f, 0.5f}) {
            for (const float z : {-0.5f, 0.5f}) {
                corners.push_back(box.center + Vec3{x * box.size.x, y * box.size.y, z * box.size.z});
            }
        }
    }
    return corners;
}

std::vector<Vec3> cornersOf(const Patch& patch)
{
    return rectangle(patch.pose, patch.clippers.empty() ? kSquare : areaOf(patch));
}

std::string colourOf(const Fingertip& fingertip)
{
    constexpr std::size_t kFirstTip = VelkHandJointId_ThumbTip;
    const bool isTip = fingertip.joint >= kFirstTip;
    const std::size_t finger = isTip ? fingertip.joint - kFirstTip : std::size_t{VelkHandFinger_Index};
    return fmt::format("c{}", (finger + (fingertip.side == Side::Left ? 1 : 0)) % kFingerNames.size());
}

} // namespace velk_tools
