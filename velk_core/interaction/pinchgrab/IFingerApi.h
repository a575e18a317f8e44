// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data/HandFinger.h"
#include "velk_core/data/HandPinchData.h"

namespace velk::interaction::grab
{

/// Per-finger grab read-out.
class IFingerApi
{
public:
    virtual ~IFingerApi() = default;

    virtual bool getFingerIsGrabbing(HandFinger finger) = 0;

    /// True from the update in which the finger came to `targetGrabState` until the next one.
    virtual bool getFingerIsGrabbingChanged(HandFinger finger, bool targetGrabState) = 0;

    /// 0 to 1.
    virtual float getFingerGrabScore(HandFinger finger) = 0;

    /// The point to hold at, in the space of the joint positions.
    virtual Vector3f getCenterOffset() = 0;

    /// One frame. `data` must not be null; a null direction means that it isn't known.
    virtual void update(const data::HandPinchData* data, const Vector3f* wristDirection,
                        const Vector3f* hmdDirection) = 0;
};

} // namespace velk::interaction::grab
