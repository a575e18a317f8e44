// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

namespace velk_play
{

std::string section(const std::string& heading, const std::string& explanation, const std::string& body);

/// A drawing in a frame of its own.
std::string figure(const std::string& svg);

/// A table; columns behind the first are set right. Cells are text, not HTML.
std::string table(const std::vector<std::string>& head, const std::vector<std::vector<std::string>>& rows);

/// The whole page.
std::string page(const std::string& title, const std::string& body);

} // namespace velk_play
