// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// Compiled for AVX2, without fused multiply-adds, where the compiler can: see velk_core/CMakeLists.txt.
#include "velk_core/data_sources/hand/RotationLanes.h"

#if defined(__GNUC__) && defined(__AVX2__)
#include "velk_core/data_sources/hand/RotationFilterKernel.h"
#endif

namespace velk::data_source
{

RotationFilterFunction* rotationFilterOfEight()
{
#if defined(__GNUC__) && defined(__AVX2__)
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") ? &kernel::filterRotations<TAL::lanes::Float<32>> : nullptr;
#else
    return nullptr;
#endif
}

} // namespace velk::data_source
