// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace velk::interaction::grab
{

/// What `FingerShapes` can measure of a finger.
enum class FingerFeature : int32_t
{
    Curl = 0,
    Flexion = 1,
    Abduction = 2,
    Opposition = 3,
};

} // namespace velk::interaction::grab
