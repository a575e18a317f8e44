// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data_sources/OneEuroFilter.h"
#include "velk_core/data_sources/hand/RotationLanes.h"

#include <bitset>
#include <cstddef>
#include <vector>

namespace velk::data_source
{

/// A one euro filter for each joint, several at once where the processor can. The bits are those of
/// OneEuroFilter, which stands in for the first frames of a joint and wherever lanes don't know the bits.
class JointFilters
{
public:
    explicit JointFilters(std::size_t count, RotationFilterFunction* filterLanes = bestFunction());

    /// The widest that the processor has, or null.
    static RotationFilterFunction* bestFunction();

    /// Filters rotations that needn't be normalised. A rotation that isn't finite then passes, and its filter
    /// stays as it was. `from` and `to` have as many as there are filters, and `params` are finite.
    void filter(const Quatf* from, Quatf* to, const TAL::OneEuroParams& params, float deltaTime);

private:
    using Filter = TAL::OneEuroFilter<Quatf>;

    struct Group
    {
        RotationFilterLanes lanes{};
        std::bitset<RotationLanes::kCount> hasLast;
        std::bitset<RotationLanes::kCount> hasSpeed;
    };

    static Filter::State stateOf(const Group& group, std::size_t lane);
    static void setState(Group& group, std::size_t lane, const Filter::State& state);
    static void filterOneByOne(Group& group, const Quatf* from, Quatf* to, std::size_t count, Filter filter,
                               float deltaTime);
    bool filterAtOnce(Group& group, const Quatf* from, Quatf* to, std::size_t count,
                      const RotationFilterStep& step) const;

    std::vector<Group> groups_;
    std::size_t count_;
    RotationFilterFunction* filterLanes_;
};

} // namespace velk::data_source
