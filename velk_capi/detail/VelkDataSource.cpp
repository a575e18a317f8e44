// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_capi/detail/VelkDataSource.h"

#include "velk_capi/detail/HandDataConversions.h"
#include "velk_capi/detail/Status.h"
#include "velk_common/NeverDestroyed.h"
#include "velk_common/VelkLog.h"
#include "velk_core/data_sources/hand/DummyHandSource.h"
#include "velk_core/data_sources/hand/ExternalHandSource.h"
#include "velk_core/data_sources/hand/OneEuroHandFilter.h"
#include "velk_core/data_sources/hand/SyntheticHand.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <memory>
#include <utility>

namespace velk::capi
{

namespace
{

using data::HandData;
using velk::data_source::DummyHandSource;
using velk::data_source::ExternalHandSource;
using velk::data_source::OneEuroHandFilter;
using velk::data_source::SyntheticHand;

using HandSource = velk::data_source::IDataSource<HandData>;

// The failures that have a code of their own; all others are VelkDataSourceHandle_Invalid.
constexpr auto kUnknownSourceType = static_cast<VelkDataSourceHandle>(-2);
constexpr auto kUnknownSource = static_cast<VelkDataSourceHandle>(-3);

// Attribute results from this one on are failures; a negative one, read as unsigned, is too.
constexpr uint32_t kFirstFailure = 3;

constexpr const char* kCreateEvent = "brenna_velk_initialized_event";
constexpr const char* kCreateFeature = "hand_filter_oneeuro";

/// One for all calls: a record per frame then takes no memory per frame. Empty while there is no source.
HandData& scratchHand()
{
    static velk::common::NeverDestroyed<HandData> hand(0);
    return *hand;
}

bool isSuccess(HandSource::UpdateAttributeResult result)
{
    return static_cast<uint32_t>(result) < kFirstFailure;
}

} // namespace

namespace data_source
{

Registry& getRegistry()
{
    static velk::common::NeverDestroyed<Registry> registry;
    return *registry;
}

bool isValidDataSourceHandle(VelkDataSourceHandle handle)
{
    return handle != VelkDataSourceHandle_Invalid && handle != kUnknownSourceType && handle != kUnknownSource;
}

VelkDataSourceHandle create(VelkDataSourceType type)
{
    switch (type) {
    case VelkDataSourceType_None:
        return VelkDataSourceHandle_Invalid;
    case VelkDataSourceType_Dummy:
        return getRegistry().insert(std::make_shared<DummyHandSource>(kNumJointsTalHand));
    case VelkDataSourceType_External:
        return getRegistry().insert(std::make_shared<ExternalHandSource>(kNumJointsTalHand));
    }
    return kUnknownSourceType;
}

int32_t destroy(VelkDataSourceHandle handle)
{
    const int32_t result = getRegistry().destroy(handle);
    if (getRegistry().isEmpty()) {
        scratchHand() = HandData(0);
    }
    return result;
}

int32_t update(VelkDataSourceHandle handle)
{
    HandSource* source = getRegistry().getRawPointer(handle);
    if (source == nullptr) {
        return kFailure;
    }
    // A lost source shows in its record, which no longer changes, and not in the result of this call.
    static_cast<void>(source->updateData());
    return kSuccess;
}

int32_t getData(VelkDataSourceHandle handle, velk_HandData* out)
{
    const HandSource* source = getRegistry().getRawPointer(handle);
    if (source == nullptr) {
        return kFailure;
    }
    *out = SpaceConversions::coreToCapi(source->getData());
    return kSuccess;
}

int32_t setAttributeFloat(VelkDataSourceHandle handle, int attributeId, float value)
{
    HandSource* source = getRegistry().getRawPointer(handle);
    if (source == nullptr) {
        return kFailure;
    }
    return isSuccess(source->updateAttribute(attributeId, value)) ? kSuccess : kFailure;
}

} // namespace data_source

namespace external_hand_source
{

int32_t setData(VelkDataSourceHandle handle, const velk_HandData* data)
{
    if (data == nullptr) {
        return kFailure;
    }
    auto* source = getRawPointerAs<ExternalHandSource>(data_source::getRegistry(), handle);
    if (source == nullptr) {
        return kFailure;
    }
    HandData& hand = scratchHand();
    if (hand.joints.empty()) {
        hand = HandData(data_source::kNumJointsTalHand);
    }
    SpaceConversions::capiToCore(*data, hand);
    return source->setData(hand) == HandSource::UpdateDataResult::Updated ? kSuccess : kFailure;
}

} // namespace external_hand_source

namespace data_modifier
{

namespace
{

// Empty for an unknown type.
std::shared_ptr<HandSource> makeDataModifier(VelkDataModifierType type,
                                             const std::shared_ptr<HandSource>& source)
{
    switch (type) {
    case VelkDataModifierType_OneEuroHandFilter:
        return std::make_shared<OneEuroHandFilter>(source, true);
    case VelkDataModifierType_SyntheticHand:
        return std::make_shared<SyntheticHand>(source, true, SyntheticHand::Config());
    }
    return nullptr;
}

// All modifiers count as a one euro filter, synthetic hands as well.
void countCreation()
{
    const auto result = telemetry::incrementValue(kCreateEvent, kCreateFeature);
    velk::common::log::logWithTag(velk::common::log::kDebug, velk::common::log::kTag,
                                  "velk_capi/detail/VelkDataSource.cpp",
                                  "incrementValue event: %s, feature: %s, result: %i", kCreateEvent,
                                  kCreateFeature, static_cast<int>(result));
}

} // namespace

VelkDataSourceHandle create(VelkDataModifierType type, VelkDataSourceHandle source)
{
    const std::shared_ptr<HandSource> shared = data_source::getRegistry().get(source);
    if (!shared) {
        return kUnknownSource;
    }
    std::shared_ptr<HandSource> modifier = makeDataModifier(type, shared);
    if (!modifier) {
        return VelkDataSourceHandle_Invalid;
    }
    return data_source::getRegistry().insert(std::move(modifier), [](VelkDataSourceHandle handle) {
        if (data_source::isValidDataSourceHandle(handle)) {
            countCreation();
        }
    });
}

} // namespace data_modifier

} // namespace velk::capi
