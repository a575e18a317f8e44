// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::utility
{

/// A reference that assignment seats anew, so that a class holding one stays copy-assignable. Never null.
template <typename T>
class AssignableRef
{
public:
    // Implicit, as for any reference.
    AssignableRef(T& target)
        : target_(&target)
    {
    }

    T* operator->() const { return target_; }

private:
    T* target_;
};

} // namespace velk::utility
