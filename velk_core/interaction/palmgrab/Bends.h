// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/palmgrab/FingerShapes.h"

#include <array>

namespace velk::interaction::grab
{

/// FingerShapes::GetCurlValue() of all fingers, and GetFlexionValue() of all but the thumb, computed side by
/// side: the same bits, but for the sign of a NaN.
struct Bends
{
    explicit Bends(const FingerShapes::JointPoses& poses);

    std::array<float, kNumHandFingers> curl{};
    std::array<float, kNumHandFingers> flexion{};
};

} // namespace velk::interaction::grab
