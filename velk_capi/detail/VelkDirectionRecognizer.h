// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ObjectRegistry.h"
#include "velk_core/detection/DirectionQuantizer.h"
#include "velk_core/detection/Recognizer.h"

#include <velk/velk.h>

#include <cstdint>
#include <utility>

namespace velk::capi::direction_recognizer
{

using DirectionRecognizer =
    detection::Recognizer<detection::DirectionQuantizer::Axis, detection::DirectionQuantizer::Alignment>;

namespace internal
{
ObjectRegistry<DirectionRecognizer, VelkDirectionRecognizerHandle>& getRegistry();

template <typename P>
VelkDirectionRecognizerHandle insert(P&& object)
{
    return getRegistry().insert(std::forward<P>(object));
}

template <typename U>
U* getRawPtr(VelkDirectionRecognizerHandle handle)
{
    return getRawPointerAs<U>(getRegistry(), handle);
}
} // namespace internal

VelkDirectionRecognizerHandle create();
int32_t destroy(VelkDirectionRecognizerHandle recognizer);
int32_t update(VelkDirectionRecognizerHandle recognizer, VelkDirectionQuantizerHandle quantizer,
               const velk_DetectionParameterList* list);
int32_t isActive(VelkDirectionRecognizerHandle recognizer, bool* isActive);

} // namespace velk::capi::direction_recognizer
