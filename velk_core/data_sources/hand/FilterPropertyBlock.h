// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::data_source
{

/// The settings of one filter group as the host makes them, unchecked. The cutoffs are in hertz; the order is
/// not that of TAL::OneEuroParams.
struct FilterPropertyBlock
{
    float minCutoff;
    float beta;
    float dCutoff;
};

} // namespace velk::data_source
