// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_capi/detail/ExternalPayload.h"
#include "velk_capi/detail/Status.h"

#include <cstdint>
#include <memory>

namespace velk::capi
{

// The payload rules that interactors and interactables share. A null object stands for an unknown handle.

template <typename T>
int32_t getPayloadOf(const T* object, VelkPayload** payload)
{
    if (object == nullptr || payload == nullptr) {
        return kFailure;
    }
    // Null, or a payload of another kind set from inside, is no host's payload.
    const auto* external = dynamic_cast<const ExternalPayload*>(object->getPayload());
    if (external == nullptr) {
        return kFailure;
    }
    *payload = external->payload;
    return kSuccess;
}

template <typename T>
int32_t setPayloadOf(T* object, VelkPayload* payload)
{
    if (object == nullptr || payload == nullptr) {
        return kFailure;
    }
    object->setPayload(std::make_shared<ExternalPayload>(payload));
    return kSuccess;
}

} // namespace velk::capi
