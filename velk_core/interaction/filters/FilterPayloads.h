// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/filters/IFilterPayload.h"

#include <map>
#include <memory>
#include <typeindex>
#include <utility>

namespace velk::interaction::filters
{

/// The filter payloads of one object, by type.
class FilterPayloads
{
public:
    void set(std::type_index type, std::shared_ptr<IFilterPayload> payload)
    {
        payloads_[type] = std::move(payload);
    }

    /// Asking for an absent type leaves an empty entry behind.
    std::shared_ptr<IFilterPayload> get(std::type_index type) { return payloads_[type]; }

private:
    std::map<std::type_index, std::shared_ptr<IFilterPayload>> payloads_;
};

} // namespace velk::interaction::filters
