// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"

#include <velk/velk.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace velk::compare
{

using Path = std::vector<talpPosef>;

/// Rectangles that face along +z of their poses, the way they move, and what points at them.
struct Scene
{
    std::vector<talpPosef> poses;
    talpVector2f half{};
    /// Every so many rectangles one moves in each frame; none with 0. On a board all move with it.
    std::size_t movesEvery = 0;
    std::vector<Path> board; ///< Frame by frame the poses of all, if they are on a board.
    std::vector<Path> pointers;

    talpPosef poseAt(std::size_t i, int frame) const
    {
        if (!board.empty()) {
            return board[static_cast<std::size_t>(frame) % board.size()][i];
        }
        talpPosef pose = poses[i];
        const talpVector3f& way = kSway[static_cast<std::size_t>(frame) % kSway.size()];
        pose.position = {pose.position.x + way.x, pose.position.y + way.y, pose.position.z + way.z};
        return pose;
    }
    const talpPosef& pointerAt(std::size_t pointer, int frame) const
    {
        const Path& path = pointers[pointer];
        return path[static_cast<std::size_t>(frame) % path.size()];
    }

    static const std::array<talpVector3f, 16> kSway; ///< Millimetres to and fro.
};

talpPosef toC(const Posef& pose);

/// Panels all round at 1 to 4 m; the ray dwells on one with a tremor, then sweeps to the next.
Scene panels(int count, std::size_t movesEvery);
/// Keys of 24 mm, 10 mm apart, on boards of 200. The fingertip hovers 6 to 46 mm above them, or presses 12 mm
/// deep.
Scene keys(int count, std::size_t movesEvery, bool presses);
/// 104 keys under the recorded fingertips of a drumming hand and of its mirror image.
Scene keyboard();
/// 300 panels around two recorded controllers.
Scene controllers();
/// 40 keys on a board that the recorded left hand moves under the fingertips of the right one.
Scene heldBoard();

/// A recorded hand that grips and opens, frame by frame, in each of the forms that calls take.
struct Hands
{
    std::vector<velk_HandData> records;
    std::vector<velk_HandPinchData> pinches;
    std::vector<velk_HandPalmData> palms;
};
Hands recordedHands();

} // namespace velk::compare
