// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include <cstdint>
#include <string>
#include <variant>

namespace velk::data_source
{

/// The value of a named setting of a source.
using AttributeValue = std::variant<int, float, double, std::string, Vector3f, Quatf>;

/// Something that has a new record of type `T` each frame. Sources chain: a modifier is a source that wraps
/// another one, and whoever reads the end of the chain sees one record either way.
template <typename T>
class IDataSource
{
public:
    enum class UpdateDataResult : int32_t
    {
        Failed = -1,  // the wrapped source no longer exists
        Unknown = 0,  // not known: to be treated as possibly new
        Updated = 1,  // new data
        Unchanged = 2 // nothing new since the last update
    };

    /// Values below 3 count as success.
    enum class UpdateAttributeResult : int32_t
    {
        Updated = 1,
        UnknownAttribute = 3,
        WrongValueType = 4
    };

    /// The present record; the reference is to the source's own copy.
    virtual const T& getData() const = 0;

    /// Advances by one frame. The news of a source is told once, to whoever asks first.
    virtual UpdateDataResult updateData() = 0;

    virtual UpdateAttributeResult updateAttribute(int attributeId, AttributeValue value) = 0;

    virtual ~IDataSource() = default;
};

} // namespace velk::data_source
