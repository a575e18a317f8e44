// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/Status.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>

namespace velk::capi
{

/// The handle table of one family: owns one strong reference per handle. Handles rise from 0; a destroyed one
/// is not issued again before the 32-bit counter has run through all its values. Host thread only.
template <typename T, typename H>
class ObjectRegistry
{
public:
    using Object = T;
    using Handle = H;

    /// Starts at another handle than 0: only a test of the counter's wrap wants that.
    explicit ObjectRegistry(uint32_t firstHandle = 0)
        : nextHandle_(firstHandle)
    {
    }

    H insert(std::shared_ptr<T> object)
    {
        const H handle = toHandle(nextHandle_);
        objects_.emplace(handle, std::move(object));
        ++nextHandle_;
        while (objects_.contains(toHandle(nextHandle_))) {
            ++nextHandle_;
        }
        return handle;
    }

    /// Inserts, then calls `finish` with the handle. What `finish` throws takes the object out again, so a
    /// create that fails leaves nothing that can be met; only its handle is spent.
    template <typename Finish>
    H insert(std::shared_ptr<T> object, const Finish& finish)
    {
        const H handle = insert(std::move(object));
        try {
            finish(handle);
        } catch (...) {
            destroy(handle);
            throw;
        }
        return handle;
    }

    /// Makes a `U` without arguments and inserts it.
    template <typename U>
    H create()
    {
        return insert(std::make_shared<U>());
    }

    /// Empty for an unknown handle.
    std::shared_ptr<T> get(H handle) const
    {
        const auto found = objects_.find(handle);
        return found == objects_.end() ? nullptr : found->second;
    }

    /// Null for an unknown handle. The pointer is kept alive by this table alone.
    T* getRawPointer(H handle) const { return get(handle).get(); }

    /// Ends the handle. The object goes when its last reference held elsewhere has gone.
    int32_t destroy(H handle)
    {
        const auto found = objects_.find(handle);
        if (found == objects_.end()) {
            return kFailure;
        }
        // Taken out first: the object's destructor must not find a half-erased table.
        const std::shared_ptr<T> last = std::move(found->second);
        objects_.erase(found);
        if (objects_.empty()) {
            decltype(objects_)().swap(objects_); // gives the buckets back, see NeverDestroyed
        }
        return kSuccess;
    }

    bool isEmpty() const { return objects_.empty(); }

private:
    static H toHandle(uint32_t value) { return static_cast<H>(static_cast<int32_t>(value)); }

    uint32_t nextHandle_;
    std::unordered_map<H, std::shared_ptr<T>> objects_;
};

/// The object of a handle if it is a `U`: a live handle of another concrete kind reads as an unknown one.
template <typename U, typename T, typename H>
U* getRawPointerAs(const ObjectRegistry<T, H>& registry, H handle)
{
    return dynamic_cast<U*>(registry.getRawPointer(handle));
}

} // namespace velk::capi
