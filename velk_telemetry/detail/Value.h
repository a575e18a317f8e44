// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <variant>

namespace velk::telemetry
{

/// Value of one field. Its type decides what an increment does: numbers count, a bool becomes true, a string
/// stays. A default-made value is the int 0.
using Value = std::variant<int, float, double, std::string, bool>;

} // namespace velk::telemetry
