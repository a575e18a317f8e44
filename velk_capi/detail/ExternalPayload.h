// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IPayload.h"

#include <velk/velk.h>

namespace velk::capi
{

/// A host's value, carried as payload: stored, never looked into and never freed.
class ExternalPayload : public core::IPayload
{
public:
    explicit ExternalPayload(VelkPayload* value)
        : payload(value)
    {
    }

    VelkPayload* const payload;
};

} // namespace velk::capi
