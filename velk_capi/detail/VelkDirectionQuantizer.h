// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/detection/DirectionQuantizer.h"

#include <velk/velk.h>

#include <cstdint>
#include <utility>

namespace velk::capi::direction_quantizer
{

namespace internal
{
ObjectRegistry<detection::DirectionQuantizer, VelkDirectionQuantizerHandle>& getRegistry();

template <typename P>
VelkDirectionQuantizerHandle insert(P&& object)
{
    return getRegistry().insert(std::forward<P>(object));
}

template <typename U>
U* getRawPtr(VelkDirectionQuantizerHandle handle)
{
    return getRawPointerAs<U>(getRegistry(), handle);
}
} // namespace internal

VelkDirectionQuantizerHandle create(const talpVector3f* direction, float middleAngle, float farAngle);
int32_t destroy(VelkDirectionQuantizerHandle quantizer);
int32_t update(VelkDirectionQuantizerHandle quantizer, const talpVector3f* value);
int32_t getValue(VelkDirectionQuantizerHandle quantizer, int axis, int* alignment);

} // namespace velk::capi::direction_quantizer
