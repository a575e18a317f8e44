// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/TALF.h"

namespace TAL
{

struct SingleExpoParams
{
    float cutoff = 1.0f; // hertz
};

/// Exponential smoothing with a cutoff frequency, of a `Vector3f` or a `Quatf`. The first value
/// passes as it is.
template <typename T>
class SingleExpoFilter
{
public:
    T Filter(T value, float deltaTime)
    {
        if (hasPrior_) {
            prior_ = TALF::lerp(prior_, value, TALF::cuttoffToGain(params.cutoff, deltaTime));
        } else {
            hasPrior_ = true;
            prior_ = value;
        }
        return prior_;
    }

    SingleExpoParams params;

private:
    bool hasPrior_ = false;
    T prior_{};
};

} // namespace TAL
