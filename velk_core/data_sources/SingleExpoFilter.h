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
        if (hasPrior) {
            prior = TALF::lerp(prior, value, TALF::cuttoffToGain(params.cutoff, deltaTime));
        } else {
            hasPrior = true;
            prior = value;
        }
        return prior;
    }

    SingleExpoParams params;
    bool hasPrior = false;
    T prior{};
};

} // namespace TAL
