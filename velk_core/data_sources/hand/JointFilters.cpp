// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/JointFilters.h"

#include "math/Math.h"
#include "math/TALF.h"

#include <algorithm>
#include <cmath>

namespace velk::data_source
{
namespace
{

constexpr std::size_t kLanes = RotationLanes::kCount;

Quatf laneOf(const RotationLanes& lanes, std::size_t i)
{
    return {lanes.x[i], lanes.y[i], lanes.z[i], lanes.w[i]};
}

void setLane(RotationLanes& lanes, std::size_t i, const Quatf& q)
{
    lanes.x[i] = q.x;
    lanes.y[i] = q.y;
    lanes.z[i] = q.z;
    lanes.w[i] = q.w;
}

bool isFinite(const Quatf& q)
{
    return std::isfinite(q.x) && std::isfinite(q.y) && std::isfinite(q.z) && std::isfinite(q.w);
}

RotationFilterStep stepFor(const TAL::OneEuroParams& params, float deltaTime)
{
    return {deltaTime, 1.0f / std::max(TAL::Math<float>::Tolerance(), deltaTime),
            TALF::cuttoffToGain(params.dCutoff, deltaTime), params.minCutoff, params.beta};
}

} // namespace

JointFilters::JointFilters(std::size_t count, RotationFilterFunction* filterLanes)
    : groups_((count + kLanes - 1) / kLanes)
    , count_(count)
    , filterLanes_(filterLanes)
{
    for (std::size_t i = 0; i < groups_.size() * kLanes; ++i) {
        const bool isSpare =
            i >= count; // is at rest from the start, so as not to keep others from going at once
        setState(groups_[i / kLanes], i % kLanes, {isSpare, isSpare, Quatf(), Quatf()});
    }
}

RotationFilterFunction* JointFilters::bestFunction()
{
    RotationFilterFunction* const widest = rotationFilterOfEight();
    return widest != nullptr ? widest : rotationFilterOfFour();
}

void JointFilters::filter(const Quatf* from, Quatf* to, const TAL::OneEuroParams& params, float deltaTime)
{
    Filter filter;
    filter.params = params;
    const RotationFilterStep step = stepFor(params, deltaTime);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        const std::size_t begin = i * kLanes;
        const std::size_t count = std::min(kLanes, count_ - begin);
        if (!filterAtOnce(groups_[i], from + begin, to + begin, count, step)) {
            filterOneByOne(groups_[i], from + begin, to + begin, count, filter, deltaTime);
        }
    }
}

bool JointFilters::filterAtOnce(Group& group, const Quatf* from, Quatf* to, std::size_t count,
                                const RotationFilterStep& step) const
{
    if (filterLanes_ == nullptr || !group.hasSpeed.all() || !(step.deltaTime > 0.0f)) {
        return false;
    }
    RotationLanes rotations{};
    for (std::size_t i = 0; i < kLanes; ++i) {
        setLane(rotations, i, i < count ? from[i] : Quatf());
    }
    if (!filterLanes_(group.lanes, rotations, step)) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        to[i] = laneOf(rotations, i);
    }
    return true;
}

void JointFilters::filterOneByOne(Group& group, const Quatf* from, Quatf* to, std::size_t count,
                                  Filter filter, float deltaTime)
{
    for (std::size_t i = 0; i < count; ++i) {
        to[i] = from[i].Normalized();
        if (isFinite(to[i])) {
            filter.setState(stateOf(group, i));
            to[i] = filter.Filter(to[i], deltaTime);
            setState(group, i, filter.state());
        }
    }
}

JointFilters::Filter::State JointFilters::stateOf(const Group& group, std::size_t lane)
{
    return {group.hasLast[lane], group.hasSpeed[lane], laneOf(group.lanes.last, lane),
            laneOf(group.lanes.speed, lane)};
}

void JointFilters::setState(Group& group, std::size_t lane, const Filter::State& state)
{
    group.hasLast[lane] = state.hasLast;
    group.hasSpeed[lane] = state.hasSpeed;
    setLane(group.lanes.last, lane, state.last);
    setLane(group.lanes.speed, lane, state.speed);
}

} // namespace velk::data_source
