// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/recording/Recording.h"

#include <algorithm>

namespace velk_tools
{

bool Recording::hasHand(Side side) const
{
    return std::any_of(frames.begin(), frames.end(),
                       [side](const Frame& frame) { return frame.hand(side) != nullptr; });
}

bool Recording::hasDevices() const
{
    return std::any_of(frames.begin(), frames.end(), [](const Frame& frame) {
        return std::any_of(frame.devices.begin(), frame.devices.end(),
                           [](const auto& pose) { return pose.has_value(); });
    });
}

double Recording::handRate(Side side) const
{
    double first = 0;
    double last = 0;
    int count = 0;
    for (const Frame& frame : frames) {
        if (!frame.hand(side)) {
            continue;
        }
        first = count == 0 ? frame.time : first;
        last = frame.time;
        ++count;
    }
    return last > first ? (count - 1) / (last - first) : 0;
}

} // namespace velk_tools
