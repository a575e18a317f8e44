// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <istream>
#include <string>

#include "host/recording/Recording.h"

namespace velk_tools
{

/// Reads a recording of hands (24 joints) or of head and controllers; the column names tell which it is.
/// Throws InputError with file and line. name is what messages call the file.
Recording parseRecording(const std::string& name, std::istream& text);

/// Adds the presses and releases of an events table to the frames at, or first after, their times.
void addTriggers(Recording& recording, const std::string& name, std::istream& text);

/// The triggers of the recording at path, if there is such a file: <stem>_events.csv beside it. Else empty.
std::string eventsBeside(const std::string& path);

/// Reads the recording at path, and for one of controllers also its triggers: from triggersPath, or when that
/// is empty from eventsBeside().
Recording loadRecording(const std::string& path, const std::string& triggersPath);

} // namespace velk_tools
