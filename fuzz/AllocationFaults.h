// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>
#include <map>
#include <new>
#include <string_view>

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

    struct OfFunction
    {
        long allocations = 0;
        long failures = 0;
    };
    std::map<std::string_view, OfFunction> functions; // all that were called, by name
};

inline AllocationFaults allocationFaults;

/// Makes a call of a function, in which an allocation may fail. `afterFault` then sees the world that the
/// failed call has left, before the call is made again with memory enough.
template <typename Call, typename AfterFault>
auto callWithFaults(std::string_view function, const Call& call, const AfterFault& afterFault)
{
    AllocationFaults::OfFunction& account = allocationFaults.functions[function];
    struct InCall
    {
        explicit InCall(AllocationFaults::OfFunction& inAccount)
            : account(inAccount)
            , before(allocationFaults.counted)
        {
            allocationFaults.isInCall = true;
        }
        ~InCall()
        {
            allocationFaults.isInCall = false;
            account.allocations += allocationFaults.counted - before;
        }
        InCall(const InCall&) = delete;
        InCall& operator=(const InCall&) = delete;

        AllocationFaults::OfFunction& account;
        long before;
    };
    try {
        const InCall inCall(account);
        return call();
    } catch (const std::bad_alloc&) {
        allocationFaults.failAt = AllocationFaults::kNever;
        ++account.failures;
    }
    afterFault();
    return call();
}

} // namespace velk_fuzz
