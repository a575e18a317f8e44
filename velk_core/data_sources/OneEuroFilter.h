// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Functions.h"
#include "math/Math.h"
#include "math/TALF.h"
#include "velk_core/data_sources/SingleExpoFilter.h"

#include <algorithm>

namespace TAL
{

struct OneEuroParams
{
    float minCutoff = 1.0f; // hertz, of a value at rest
    float dCutoff = 1.0f;   // hertz, of the derivative
    float beta = 1.0f;      // hertz added per unit (metre or radian) per second of speed
};

/// A low-pass filter whose cutoff rises with the speed of its value: little jitter at rest, little lag in
/// motion. After G. Casiez, N. Roussel, D. Vogel, "1 Euro Filter: A Simple Speed-based Low-pass Filter for
/// Noisy Input in Interactive Systems", CHI 2012. Here the derivative is taken against the last filtered
/// value, and the first derivative passes unsmoothed. The derivative of a rotation is a rotation per second,
/// taken the shorter way round: beyond half a turn per second it reads as less.
template <typename T>
class OneEuroFilter
{
public:
    /// A time step in seconds that is not above 0 changes nothing and gives the last result again.
    T Filter(T value, float deltaTime)
    {
        if (!(deltaTime > 0.0f)) {
            return Last();
        }
        if (hasPrior_) {
            adaptCutoff(value, deltaTime);
        }
        hasPrior_ = true;
        last_ = xFilter_.Filter(value, deltaTime);
        return last_;
    }

    T Last() const { return last_; }

    /// What a filter knows of the values that it has had.
    struct State
    {
        bool hasLast = false;
        bool hasSpeed = false;
        T last{};
        T speed{};
    };

    State state() const { return {hasPrior_, dxFilter_.hasPrior, last_, dxFilter_.prior}; }

    void setState(const State& state)
    {
        hasPrior_ = xFilter_.hasPrior = state.hasLast;
        last_ = xFilter_.prior = state.last;
        dxFilter_.hasPrior = state.hasSpeed;
        dxFilter_.prior = state.speed;
    }

    OneEuroParams params;

private:
    void adaptCutoff(const T& value, float deltaTime)
    {
        dxFilter_.params.cutoff = params.dCutoff;
        const float rate = 1.0f / std::max(Math<float>::Tolerance(), deltaTime);
        const auto speed = dxFilter_.Filter(TALF::scale(TALF::diff(value, last_), rate), deltaTime);
        xFilter_.params.cutoff = FusedMultiplyAdd(params.beta, TALF::mag(speed), params.minCutoff);
    }

    bool hasPrior_ = false;
    T last_{};
    SingleExpoFilter<T> xFilter_;
    SingleExpoFilter<T> dxFilter_;
};

} // namespace TAL
