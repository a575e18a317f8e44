// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/utility/UniqueIdentifier.h"

namespace velk::utility
{

uint32_t UniqueIdentifier::nextId_ = 0;

UniqueIdentifier::UniqueIdentifier()
    : id_(nextId_++)
{
}

} // namespace velk::utility
