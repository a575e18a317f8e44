// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Rounds.h"

#include <string>
#include <vector>

namespace velk::compare
{

/// One row a job, one column a contestant: nanoseconds a frame. Below, how often others agree where they
/// don't always.
std::string tableOf(const std::vector<Result>& results);
/// What is wanted of the library beside what was measured.
std::string barsOf(const std::vector<Result>& results);

/// One line a figure: job, contestant, nanoseconds, the library's ratio to it.
std::string linesOf(const std::vector<Result>& results);
/// Names what became slower, against others, than `kept` lines say: empty if nothing did.
std::vector<std::string> slower(const Result& result, const std::string& kept);

} // namespace velk::compare
