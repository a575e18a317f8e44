// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <fstream>
#include <string>

namespace velk_play
{

/// The whole of a file. Throws InputError when it can't be read.
std::string readTextFile(const std::string& path);

/// Opens a file for writing. Throws InputError when that fails.
std::ofstream openForWriting(const std::string& path);

/// Ends the writing. Throws InputError when something of it failed, as on a full disk.
void finishWriting(std::ofstream& file, const std::string& path);

} // namespace velk_play
