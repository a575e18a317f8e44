// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>

namespace velk_tools
{

/// The text with its control characters spelled out, as \u001b: what a file or its name holds moves no cursor
/// of a terminal and ends no line.
std::string printable(std::string_view text);

} // namespace velk_tools
