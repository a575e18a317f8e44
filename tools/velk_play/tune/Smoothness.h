// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "play/Observer.h"

namespace velk_tools
{

/// What a filter takes out of a hand's turning, and how late it makes it: means over joints and root.
struct Smoothness
{
    double recordedJitter = 0; ///< Degrees by which a frame's turn differs from the one before, as recorded.
    double jitter = 0;         ///< The same, filtered.
    double lag = 0; ///< Seconds by which the filtered motion fits the recorded one best if shifted.
};

/// Keeps the turns of the first hand of a scene.
class SmoothnessMeter : public Observer
{
public:
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;

    /// Whether there was a hand to measure.
    bool hasHand() const { return times_.size() > 2; }
    Smoothness measure() const;

private:
    using Turns = std::vector<Quat>; // of the root and of each joint

    double meanDistance(double shift) const;

    std::vector<double> times_;
    std::vector<Turns> recorded_;
    std::vector<Turns> filtered_;
};

} // namespace velk_tools
