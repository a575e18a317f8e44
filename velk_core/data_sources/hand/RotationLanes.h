// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::data_source
{

/// The rotations of a hand, component by component.
struct RotationLanes
{
    static constexpr int kCount = 24;

    alignas(32) float x[kCount];
    alignas(32) float y[kCount];
    alignas(32) float z[kCount];
    alignas(32) float w[kCount];
};

/// What the one euro filters of a hand's rotations know.
struct RotationFilterLanes
{
    RotationLanes last;
    RotationLanes speed;
};

/// The settings and the time step of a filter, prepared for one frame.
struct RotationFilterStep
{
    float deltaTime; // seconds, above 0
    float rate;      // hertz
    float speedGain;
    float minCutoff; // hertz
    float beta;
};

/// Filters rotations that needn't be normalised, in place. All filters know a last value and a
/// speed. False, with nothing changed, where numbers alone give the bits: for what is not finite, before or
/// after, and angles of 2^20 radians and more.
using RotationFilterFunction = bool(RotationFilterLanes& filters, RotationLanes& rotations,
                                    const RotationFilterStep& step);

/// By four lanes, with SSE2 or NEON. Null where the processor has neither.
RotationFilterFunction* rotationFilterOfFour();
/// By eight lanes, with AVX2. Null where the processor doesn't have it.
RotationFilterFunction* rotationFilterOfEight();

} // namespace velk::data_source
