// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace velk_tools
{

/// The text with its control characters spelled out, as \u001b: what a file or its name holds moves no cursor
/// of a terminal and ends no line.
std::string printable(std::string_view text);

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
