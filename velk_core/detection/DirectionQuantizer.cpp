// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/detection/DirectionQuantizer.h"

#include "math/Angles.h"
#include "math/Math.h"

#include <algorithm>
#include <utility>

namespace velk::detection
{

DirectionQuantizer::DirectionQuantizer(const Vector3f& direction, float middleAngle, float farAngle)
    : direction_(direction.Normalized())
{
    // Degrees. An angle is never below 0, so each one that is a number reaches the first two thresholds and
    // is at least close.
    Quantizer<Vector3f, Axis, Alignment>::Thresholds thresholds = {{AxisDirection,
                                                                    {{AlignmentNone, -1.0f},
                                                                     {AlignmentClose, -0.1f},
                                                                     {AlignmentMiddle, middleAngle},
                                                                     {AlignmentFar, farAngle}}}};
    quantizer_ = std::make_unique<Quantizer<Vector3f, Axis, Alignment>>(
        std::move(thresholds), [this](const Vector3f& value, std::unordered_map<Axis, float>& deltas) {
            return mapDirectionToAngleDegreeDelta(value, deltas);
        });
}

int DirectionQuantizer::convert(Vector3f value, Levels** result)
{
    return quantizer_->convert(value, result);
}

const DirectionQuantizer::Levels& DirectionQuantizer::getKeyQuantValueMap() const
{
    return quantizer_->getKeyQuantValueMap();
}

bool DirectionQuantizer::findLevel(Axis axis, Alignment& level) const
{
    const Levels& levels = quantizer_->getKeyQuantValueMap();
    const auto found = levels.find(axis);
    if (found == levels.end()) {
        return false;
    }
    level = found->second;
    return true;
}

bool DirectionQuantizer::mapDirectionToAngleDegreeDelta(const Vector3f& value,
                                                        std::unordered_map<Axis, float>& deltas) const
{
    const Vector3f unit = value.Normalized();
    const float cosine = std::clamp(direction_.Dot(unit), -1.0f, 1.0f);
    deltas[AxisDirection] = TAL::angles::ArcCos(cosine) * TAL::kDegreesPerRadian;
    return true;
}

} // namespace velk::detection
