// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/OneEuroHandFilter.h"

#include "math/Math.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace velk::data_source
{

namespace
{

using data::HandData;
using TAL::OneEuroFilter;
using TAL::OneEuroParams;

// { minCutoff, beta, dCutoff }
constexpr FilterPropertyBlock kRootPositionDefaults{2.0f, 10.0f, 1.0f};
constexpr FilterPropertyBlock kRootRotationDefaults{2.0f, 3.0f, 1.0f};
constexpr FilterPropertyBlock kJointRotationDefaults{1.0f, 2.0f, 1.0f};
constexpr float kDefaultUpdateRate = 50.0f; // hertz

bool checkAllParamsValid(const OneEuroParams& params)
{
    return std::isfinite(params.beta) && std::isfinite(params.minCutoff) && std::isfinite(params.dCutoff);
}

bool checkValueValid(const Vector3f& value)
{
    return std::isfinite(value.x) && std::isfinite(value.y) && std::isfinite(value.z);
}

bool checkValueValid(const Quatf& value)
{
    return std::isfinite(value.x) && std::isfinite(value.y) && std::isfinite(value.z) &&
           std::isfinite(value.w);
}

// Never below the tolerance; a NaN gives the tolerance as well, by std::max's order of operands.
float atLeastTolerance(float value)
{
    return std::max(TAL::Math<float>::Tolerance(), value);
}

OneEuroParams paramsOf(const FilterPropertyBlock& properties)
{
    OneEuroParams params;
    params.beta = properties.beta;
    params.minCutoff = atLeastTolerance(properties.minCutoff);
    params.dCutoff = atLeastTolerance(properties.dCutoff);
    return params;
}

template <typename T>
T applyOneEuroFilter(const T& value, OneEuroFilter<T>& filter, const FilterPropertyBlock& properties,
                     float deltaTime)
{
    filter.params = paramsOf(properties);
    if (checkAllParamsValid(filter.params) && checkValueValid(value)) {
        return filter.Filter(value, deltaTime);
    }
    return value;
}

} // namespace

OneEuroHandFilter::OneEuroHandFilter(std::shared_ptr<IDataSource<HandData>> source, bool updateSource)
    : DataModifier(std::move(source), updateSource)
    , jointFilters_(static_cast<std::size_t>(data_.getNumHandJoints()))
    , rootPositionProperties_(std::make_unique<FilterPropertyBlock>(kRootPositionDefaults))
    , rootRotationProperties_(std::make_unique<FilterPropertyBlock>(kRootRotationDefaults))
    , jointRotationProperties_(std::make_unique<FilterPropertyBlock>(kJointRotationDefaults))
    , attributes_{
          {AttributeId::RootPositionBeta, rootPositionProperties_->beta},
          {AttributeId::RootPositionMinCutoff, rootPositionProperties_->minCutoff},
          {AttributeId::RootRotationBeta, rootRotationProperties_->beta},
          {AttributeId::RootRotationMinCutoff, rootRotationProperties_->minCutoff},
          {AttributeId::JointRotationBeta, jointRotationProperties_->beta},
          {AttributeId::JointRotationMinCutoff, jointRotationProperties_->minCutoff},
          {AttributeId::UpdateRate, updateRate_},
          {AttributeId::RootPositionDCutoff, rootPositionProperties_->dCutoff},
          {AttributeId::RootRotationDCutoff, rootRotationProperties_->dCutoff},
          {AttributeId::JointRotationDCutoff, jointRotationProperties_->dCutoff},
      }
    , updateRate_(kDefaultUpdateRate)
{
}

OneEuroHandFilter::UpdateAttributeResult OneEuroHandFilter::updateAttribute(int attributeId,
                                                                            AttributeValue value)
{
    const float* number = std::get_if<float>(&value);
    if (number == nullptr) {
        return UpdateAttributeResult::WrongValueType;
    }
    const auto attribute = attributes_.find(static_cast<AttributeId>(attributeId));
    if (attribute == attributes_.end()) {
        return UpdateAttributeResult::UnknownAttribute;
    }
    attribute->second.get() = *number;
    return UpdateAttributeResult::Updated;
}

OneEuroHandFilter::UpdateDataResult OneEuroHandFilter::applyModifications(UpdateDataResult sourceResult)
{
    if (!isNews(sourceResult)) {
        return UpdateDataResult::Unchanged;
    }
    const auto source = source_.lock();
    if (!source) {
        return UpdateDataResult::Failed;
    }
    const HandData& input = source->getData();
    data_ = input;
    const float deltaTime = 1.0f / atLeastTolerance(updateRate_);
    data_.rootPose.rotation = applyOneEuroFilter(input.rootPose.rotation.Normalized(), rootRotationFilter_,
                                                 *rootRotationProperties_, deltaTime);
    data_.rootPose.translation = applyOneEuroFilter(input.rootPose.translation, rootPositionFilter_,
                                                    *rootPositionProperties_, deltaTime);
    filterJoints(input, deltaTime);
    return UpdateDataResult::Updated;
}

void OneEuroHandFilter::filterJoints(const HandData& input, float deltaTime)
{
    const OneEuroParams params = paramsOf(*jointRotationProperties_);
    if (checkAllParamsValid(params)) {
        jointFilters_.filter(input.joints.data(), data_.joints.data(), params, deltaTime);
        return;
    }
    for (std::size_t i = 0; i < data_.joints.size(); ++i) {
        data_.joints[i] = input.joints[i].Normalized();
    }
}

} // namespace velk::data_source
