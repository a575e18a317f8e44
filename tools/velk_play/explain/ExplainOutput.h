// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <vector>

#include "explain/Episode.h"

namespace velk_tools
{

/// An episode with a line for each of its reasons, on standard output.
void printAsText(const Episode& episode);

/// The same as a JSON object in a line.
void printAsJson(const Episode& episode);

} // namespace velk_tools
