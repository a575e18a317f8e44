// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/detection/Quantizer.h"

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace velk::detection
{

/// Labels a direction by its angle to a reference direction. The angle of the moment alone decides: there is
/// no hysteresis.
class DirectionQuantizer
{
public:
    enum Axis : int32_t
    {
        AxisDirection = 0, // the one key
    };

    enum Alignment : int32_t
    {
        AlignmentNone = 0, // the angle is NaN
        AlignmentClose = 1,
        AlignmentMiddle = 2,
        AlignmentFar = 3,
    };

    using Levels = std::unordered_map<Axis, Alignment>;

    /// `middleAngle` and `farAngle`, in degrees, are the least angles of their levels. A zero `direction`
    /// measures 90 degrees to everything.
    DirectionQuantizer(const Vector3f& direction, float middleAngle, float farAngle);

    // The quantizer calls back into this object.
    DirectionQuantizer(const DirectionQuantizer&) = delete;
    DirectionQuantizer& operator=(const DirectionQuantizer&) = delete;

    /// As `Quantizer::convert`. The length of `value` has no effect; a zero one measures 90 degrees.
    int convert(Vector3f value, Levels** result);

    /// Empty before the first `convert`.
    const Levels& getKeyQuantValueMap() const;

    /// The level of a key without a copy of the map: false, with `level` left alone, for a key that isn't in
    /// it.
    bool findLevel(Axis axis, Alignment& level) const;

    bool mapDirectionToAngleDegreeDelta(const Vector3f& value, std::unordered_map<Axis, float>& deltas) const;

private:
    Vector3f direction_;
    std::unique_ptr<Quantizer<Vector3f, Axis, Alignment>> quantizer_;
};

} // namespace velk::detection
