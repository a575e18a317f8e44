// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <stdexcept>
#include <string>

#include "host/Printable.h"
#include <string>

namespace velk_tools
{

/// A file or an argument that the user has to mend. what() is the whole line to show, with file, line or key.
class InputError : public std::runtime_error
{
public:
    explicit InputError(const std::string& line)
        : std::runtime_error(printable(line))
    {
    }
};

} // namespace velk_tools
