// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace velk::common
{

/// A static object whose destructor never runs, so that a call during or after exit, from whichever thread,
/// still finds it. It lies in static bytes. What it holds on the heap is its owner's to let go of: tables
/// drop their buffers with their last entry, so that an unloaded library leaves nothing behind of what the
/// host destroyed.
template <typename T>
class NeverDestroyed
{
public:
    template <typename... Args>
    explicit NeverDestroyed(Args&&... args)
    {
        new (static_cast<void*>(storage_)) T(std::forward<Args>(args)...);
    }
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    T& operator*() { return *std::launder(reinterpret_cast<T*>(storage_)); }

private:
    alignas(T) std::byte storage_[sizeof(T)] = {}; // NOLINT(modernize-avoid-c-arrays): raw bytes
};

} // namespace velk::common
