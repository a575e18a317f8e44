// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "world/HandActor.h"

namespace velk_tools
{

HandActor::HandActor(const HandChain& chain, double rate, VelkInteractorHandle poker)
    : chain_(chain)
    , source_(velk_DataSource_Create(VelkDataSourceType_External))
    , filter_(velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, source_))
    , synthetic_(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, filter_))
{
    // The filter has no clock of its own: its time step is one over this rate.
    velk_DataSource_SetAttributeFloat(filter_, VelkHandFilterAttribute_UpdateRate, static_cast<float>(rate));
    for (const auto& [attribute, value] : chain.filter) {
        expect(velk_DataSource_SetAttributeFloat(filter_, attribute, value),
               "velk_DataSource_SetAttributeFloat");
    }
    if (static_cast<int32_t>(poker) >= 0) {
        limiter_.emplace(velk_HandPokeLimiterVisual_Create(source_, poker, synthetic_));
    }
}

void HandActor::update(const Frame& frame)
{
    const HandSample* hand = frame.hand(chain_.side);
    view_.tracked = hand != nullptr;
    if (hand == nullptr) {
        return;
    }
    view_.raw.rootPose = hand->root;
    for (std::size_t i = 0; i < hand->joints.size(); ++i) {
        view_.raw.joints[i] = hand->joints[i].orientation;
    }
    velk_ExternalHandSource_SetData(source_, &view_.raw);
    if (limiter_) {
        velk_HandPokeLimiterVisual_Update(*limiter_);
    }
    // The outermost one only: it updates those behind it, and news reaches the first who asks.
    velk_DataSource_Update(synthetic_);
    velk_DataSource_GetData(filter_, &view_.filtered);
    velk_DataSource_GetData(synthetic_, &view_.shown);
}

} // namespace velk_tools
