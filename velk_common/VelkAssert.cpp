// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_common/VelkAssert.h"

#if defined(_MSC_VER)
#include <intrin.h>
#endif

namespace velk::common
{

bool velkAssert(bool condition)
{
    if (!condition) {
#if defined(_MSC_VER)
        __fastfail(FAST_FAIL_INVALID_ARG);
#else
        __builtin_trap();
#endif
    }
    return condition;
}

} // namespace velk::common
