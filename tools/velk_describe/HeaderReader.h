// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace velk_tools
{

/// What a C header in velk.h's regular form declares, in the form that docs/interface.md tells. Throws
/// InputError with file and line for what it can't read.
nlohmann::ordered_json describeHeader(const std::string& name, const std::string& text);

} // namespace velk_tools
