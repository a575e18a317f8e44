// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/data_sources/hand/RotationLanes.h"

#if defined(__GNUC__) && (defined(__SSE2__) || defined(__aarch64__))
#include "velk_core/data_sources/hand/RotationFilterKernel.h"
#define VELK_HAS_LANES
#endif

namespace velk::data_source
{

RotationFilterFunction* rotationFilterOfFour()
{
#ifdef VELK_HAS_LANES
    return &kernel::filterRotations<TAL::lanes::Float<16>>;
#else
    return nullptr;
#endif
}

} // namespace velk::data_source
