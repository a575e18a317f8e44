// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"
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
    virtual TAL::Vector3<float> getCenterOffset() = 0;

    /// One frame. `data` must not be null; a null direction means that it isn't known.
    virtual void update(const data::HandPinchData* data, const TAL::Vector3<float>* wristDirection,
                        const TAL::Vector3<float>* hmdDirection) = 0;
};

} // namespace velk::interaction::grab
