// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace velk::utility
{

/// A number that no other object of the process has: 0 for the first ever made, then rising.
/// Made on the host's thread only.
class UniqueIdentifier
{
public:
    UniqueIdentifier();

    uint32_t get() const { return id_; }

private:
    static uint32_t nextId_;

    uint32_t id_;
};

} // namespace velk::utility
