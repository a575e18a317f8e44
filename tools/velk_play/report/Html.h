// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "play/States.h"

namespace velk_tools
{

std::string section(const std::string& heading, const std::string& explanation, const std::string& body);

/// A drawing in a frame of its own.
std::string figure(const std::string& svg);

/// A table; columns behind the first are set right. Cells are text, not HTML.
std::string table(const std::vector<std::string>& head, const std::vector<std::vector<std::string>>& rows);

/// The class of what is drawn in a state's colour, and of a band in that colour behind curves.
std::string_view styleOf(State state);
std::string softStyleOf(State state);

/// What stands before the page's sections and behind them.
std::string pageBegin(const std::string& title);
inline constexpr std::string_view kPageEnd = "</main>\n</body>\n</html>\n";

} // namespace velk_tools
