// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/FlatTable.h"
#include "velk_capi/detail/Status.h"

#include <cstdint>
#include <memory>
#include <typeinfo>
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
        const std::type_info* const type = object != nullptr ? &typeOf(*object) : nullptr;
        objects_.insert(handle, {std::move(object), type});
        ++nextHandle_;
        while (objects_.find(toHandle(nextHandle_)) != nullptr) {
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
        const Held* const held = objects_.find(handle);
        return held != nullptr ? held->object : nullptr;
    }

    /// Null for an unknown handle. The pointer is kept alive by this table alone.
    T* getRawPointer(H handle) const
    {
        const Held* const held = objects_.find(handle);
        return held != nullptr ? held->object.get() : nullptr;
    }

    /// The object if it is a `U`: a live handle of another concrete kind reads as an unknown one. It is asked
    /// only where its class is not `U` itself.
    template <typename U>
    U* getRawPointerAs(H handle) const
    {
        const Held* const held = objects_.find(handle);
        if (held == nullptr) {
            return nullptr;
        }
        if constexpr (requires(T * object) { static_cast<U*>(object); }) {
            if (held->type == &typeid(U)) {
                return static_cast<U*>(held->object.get());
            }
        }
        return dynamic_cast<U*>(held->object.get());
    }

    /// Ends the handle. The object goes when its last reference held elsewhere has gone.
    int32_t destroy(H handle)
    {
        if (objects_.find(handle) == nullptr) {
            return kFailure;
        }
        // Taken out first: the object's destructor must not find a half-erased table.
        const Held last = objects_.take(handle);
        return kSuccess;
    }

    bool isEmpty() const { return objects_.empty(); }

private:
    struct Held
    {
        std::shared_ptr<T> object;
        const std::type_info* type = nullptr; // the concrete class
    };

    static const std::type_info& typeOf(const T& object) { return typeid(object); }
    static H toHandle(uint32_t value) { return static_cast<H>(static_cast<int32_t>(value)); }

    uint32_t nextHandle_;
    FlatTable<H, Held> objects_;
};

template <typename U, typename T, typename H>
U* getRawPointerAs(const ObjectRegistry<T, H>& registry, H handle)
{
    return registry.template getRawPointerAs<U>(handle);
}

} // namespace velk::capi
