// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandPinchData.h"

#include <array>
#include <cstddef>

namespace velk::interaction::grab
{

/// What a pinch is decided by, of all fingers side by side: the same bits as FingerPinchGrabAPI's measures of
/// one after the other, but for the sign of a NaN.
struct TipDistances
{
    explicit TipDistances(const data::HandPinchData& hand);

    static constexpr std::size_t kCount = 4; // index to little finger

    /// IsPointNearThumb().
    std::array<bool, kCount> isNearThumb{};
    /// GetClosestDistanceToThumb(), of the thumb's last bone, and of its last two.
    std::array<float, kCount> toLastBone{};
    std::array<float, kCount> toBothBones{};
};

/// getClosestDistanceToJoints() from the thumb's last bone to those of the index finger.
float measureThumbToIndex(const data::HandPinchData& hand, float alignmentLimit);

} // namespace velk::interaction::grab
