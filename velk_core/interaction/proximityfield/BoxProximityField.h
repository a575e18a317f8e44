// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Pose.h"
#include "math/Vector3.h"
#include "velk_core/interaction/proximityfield/IProximityField.h"

namespace velk::interaction::proximity_field
{

/// A solid box, freely turned. A point inside is its own closest point.
class BoxProximityField : public IProximityField
{
public:
    BoxProximityField(const TAL::Pose<float>& pose, const TAL::Vector3<float>& size);

    /// The centre and the orientation.
    void setPose(const TAL::Pose<float>& pose);

    /// The full size along the local axes. What is below the float epsilon, or NaN, becomes the epsilon.
    void setSize(const TAL::Vector3<float>& size);

    TAL::Vector3<float> computeClosestPoint(const TAL::Vector3<float>& point) override;

private:
    TAL::Pose<float> pose_;
    TAL::Vector3<float> size_;
};

} // namespace velk::interaction::proximity_field
