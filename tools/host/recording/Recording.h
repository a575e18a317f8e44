// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Geometry.h"
#include "host/recording/Names.h"

namespace velk_tools
{

/// One hand at one moment.
struct HandSample
{
    Pose root = kIdentity;                            ///< In the recording's space.
    std::array<Pose, VELK_HAND_JOINT_COUNT> joints{}; ///< In root space.
    int32_t handedness = 0;                           ///< 0 left, 1 right.

    /// A joint in the recording's space.
    Pose joint(std::size_t id) const { return transform(root, joints[id]); }
};

struct TriggerEvent
{
    Device device;
    bool down;
};

/// All that was recorded for one moment. What is empty was not tracked, or not recorded at all.
struct Frame
{
    double time = 0;                                        ///< Seconds from the recording's start.
    std::array<std::unique_ptr<const HandSample>, 2> hands; ///< Most recordings have one alone.
    std::array<std::optional<Pose>, 3> devices;
    std::vector<TriggerEvent> triggers; ///< Since the frame before, in their order.

    /// Null without the hand.
    const HandSample* hand(Side side) const { return hands[static_cast<std::size_t>(side)].get(); }
    const std::optional<Pose>& device(Device device) const
    {
        return devices[static_cast<std::size_t>(device)];
    }
};

struct Recording
{
    std::string name;
    std::vector<Frame> frames; ///< In rising time; never empty.

    double duration() const { return frames.back().time - frames.front().time; }
    bool hasHand(Side side) const;
    bool hasDevices() const;
    /// Frames a second of one hand, over the time in which it was tracked; 0 for fewer than two frames.
    double handRate(Side side) const;
};

} // namespace velk_tools
