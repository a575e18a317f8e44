// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/DataModifier.h"
#include "velk_core/data_sources/OneEuroFilter.h"
#include "velk_core/data_sources/hand/FilterPropertyBlock.h"
#include "velk_core/data_sources/hand/JointFilters.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

namespace velk::data_source
{

/// Smooths the root and every joint of a hand, each with a one euro filter of its own.
///
/// It has no clock: the time step is always one over the update rate, so a host that runs at another rate
/// sets that attribute. Filter state is never reset. A value or a setting that is not finite stops the filter
/// concerned: the value passes, and the filter's state stays as it was.
class OneEuroHandFilter : public DataModifier<data::HandData>
{
public:
    /// Hosts pass these numbers, so they are fixed.
    enum class AttributeId : int32_t
    {
        RootPositionBeta = 1,
        RootPositionMinCutoff = 2,
        RootRotationBeta = 3,
        RootRotationMinCutoff = 4,
        JointRotationBeta = 5,
        JointRotationMinCutoff = 6,
        UpdateRate = 7,
        RootPositionDCutoff = 8,
        RootRotationDCutoff = 9,
        JointRotationDCutoff = 10,
    };

    /// `source` must not be empty: the filters are as many as its record has joints now.
    OneEuroHandFilter(std::shared_ptr<IDataSource<data::HandData>> source, bool updateSource);

    // The attributes refer to members.
    OneEuroHandFilter(const OneEuroHandFilter&) = delete;
    OneEuroHandFilter& operator=(const OneEuroHandFilter&) = delete;

    /// Takes floats only and tests no range: cutoffs are floored when they are used.
    UpdateAttributeResult updateAttribute(int attributeId, AttributeValue value) override;

    UpdateDataResult applyModifications(UpdateDataResult sourceResult) override;

private:
    void filterJoints(const data::HandData& input, float deltaTime);

    TAL::OneEuroFilter<Quatf> rootRotationFilter_;
    TAL::OneEuroFilter<Vector3f> rootPositionFilter_;
    JointFilters jointFilters_;
    std::unique_ptr<FilterPropertyBlock> rootPositionProperties_;
    std::unique_ptr<FilterPropertyBlock> rootRotationProperties_;
    std::unique_ptr<FilterPropertyBlock> jointRotationProperties_;
    std::unordered_map<AttributeId, std::reference_wrapper<float>> attributes_;
    float updateRate_; // hertz
};

} // namespace velk::data_source
