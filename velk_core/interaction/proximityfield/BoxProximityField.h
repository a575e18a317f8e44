// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/proximityfield/IProximityField.h"

namespace velk::interaction::proximity_field
{

/// A solid box, freely turned. A point inside is its own closest point.
class BoxProximityField : public IProximityField
{
public:
    BoxProximityField(const Posef& pose, const Vector3f& size);

    /// The centre and the orientation.
    void setPose(const Posef& pose);

    /// The full size along the local axes. What is below the float epsilon, or NaN, becomes the epsilon.
    void setSize(const Vector3f& size);

    Vector3f computeClosestPoint(const Vector3f& point) override;

private:
    Posef pose_;
    Vector3f size_;
};

} // namespace velk::interaction::proximity_field
