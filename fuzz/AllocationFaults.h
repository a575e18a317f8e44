// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>
#include <new>

/// Memory that ends in the middle of a call of the library. Only an executable that replaces `operator new`
/// (AllocationSweep.cpp) makes it end; in all others a call is simply made.
namespace velk_fuzz
{

struct AllocationFaults
{
    static constexpr long kNever = std::numeric_limits<long>::max();

    long failAt = kNever; ///< the first allocation to fail, of those that calls make, counted from 1
    bool andAllAfter = false;
    long counted = 0;
    bool isInCall = false;
    long thrown = 0;
};

inline AllocationFaults allocationFaults;

/// Makes a call, in which an allocation may fail. `afterFault` then sees the world that the failed call has
/// left, before the call is made again with memory enough.
template <typename Call, typename AfterFault>
auto callWithFaults(const Call& call, const AfterFault& afterFault)
{
    struct InCall
    {
        InCall() { allocationFaults.isInCall = true; }
        ~InCall() { allocationFaults.isInCall = false; }
    };
    try {
        const InCall inCall;
        return call();
    } catch (const std::bad_alloc&) {
        allocationFaults.failAt = AllocationFaults::kNever;
    }
    afterFault();
    return call();
}

} // namespace velk_fuzz
