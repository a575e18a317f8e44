// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velk_tools
{

/// The one of the names that the word was probably meant to be; empty if none is near. Near is up to a third
/// of the longer one's letters added, left out, exchanged or swapped with their neighbour, and at least one.
/// Case doesn't count; of equally near names the first is taken.
std::string_view nearestName(std::string_view word, const std::vector<std::string_view>& names);

/// "; did you mean fingertips?", or nothing if no name is near.
std::string suggestion(std::string_view word, const std::vector<std::string_view>& names);

} // namespace velk_tools
