// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tune/Smoothness.h"

#include <algorithm>
#include <cmath>

namespace velk_tools
{

namespace
{

constexpr double kStep = 0.005; // seconds, between the shifts that are tried
constexpr int kMostSteps = 50;
constexpr double kLongest = kMostSteps * kStep;

std::vector<Quat> turnsOf(const velk_HandData& hand)
{
    std::vector<Quat> turns{hand.rootPose.orientation};
    turns.insert(turns.end(), std::begin(hand.joints), std::end(hand.joints));
    return turns;
}

/// Degrees; exact also for small ones, where a cosine tells nothing.
double angleOf(Quat turn)
{
    const double sine = std::hypot(turn.x, turn.y, turn.z);
    return 2 * std::atan2(sine, std::abs(turn.w)) * kDegrees;
}

Quat between(Quat from, Quat to, double part)
{
    const float sign = from.x * to.x + from.y * to.y + from.z * to.z + from.w * to.w < 0 ? -1.0f : 1.0f;
    const auto b = static_cast<float>(part);
    const float a = (1 - b) * sign;
    return normalized(
        Quat{from.x * a + to.x * b, from.y * a + to.y * b, from.z * a + to.z * b, from.w * a + to.w * b});
}

double jitterOf(const std::vector<std::vector<Quat>>& motion)
{
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t i = 2; i < motion.size(); ++i) {
        for (std::size_t joint = 0; joint < motion[i].size(); ++joint) {
            const Quat before = motion[i - 1][joint] * conjugate(motion[i - 2][joint]);
            const Quat now = motion[i][joint] * conjugate(motion[i - 1][joint]);
            sum += angleOf(now * conjugate(before));
            ++count;
        }
    }
    return sum / static_cast<double>(count);
}

} // namespace

void SmoothnessMeter::frame(const Observation& seen, const std::vector<Transition>&)
{
    if (!seen.hands.empty() && seen.hands.front().tracked) {
        times_.push_back(seen.time);
        recorded_.push_back(turnsOf(seen.hands.front().raw));
        filtered_.push_back(turnsOf(seen.hands.front().filtered));
    }
}

// Between the filtered motion and what was recorded so many seconds before.
double SmoothnessMeter::meanDistance(double shift) const
{
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t i = 0, at = 0; i < times_.size(); ++i) {
        const double time = times_[i] - shift;
        if (times_[i] < times_.front() + kLongest) {
            continue; // so that all shifts are held against the same frames
        }
        while (times_[at + 1] < time) {
            ++at;
        }
        const double part = (time - times_[at]) / (times_[at + 1] - times_[at]);
        for (std::size_t joint = 0; joint < filtered_[i].size(); ++joint) {
            const Quat recorded = between(recorded_[at][joint], recorded_[at + 1][joint], part);
            sum += angleOf(filtered_[i][joint] * conjugate(recorded));
            ++count;
        }
    }
    return count > 0 ? sum / static_cast<double>(count) : 0;
}

Smoothness SmoothnessMeter::measure() const
{
    Smoothness result{jitterOf(recorded_), jitterOf(filtered_), 0};
    double least = meanDistance(0);
    for (int step = 1; step <= kMostSteps; ++step) {
        const double shift = step * kStep;
        const double distance = meanDistance(shift);
        if (distance < least) {
            least = distance;
            result.lag = shift;
        }
    }
    return result;
}

} // namespace velk_tools
