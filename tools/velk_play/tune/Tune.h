// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

namespace velk_tools
{

/// What `velk-play tune` is asked for. Empty files are neither read nor written.
struct TuneOptions
{
    std::string scene;
    std::string recording;
    std::string triggers;
    std::vector<std::string> variations; ///< See parseVariation().
    std::string marks;
    double tolerance = 0.15; ///< Seconds.
    std::string report;
    bool json = false;
};

/// Plays a recording through a scene with each combination of settings, and prints how each did.
void tune(const TuneOptions& options);

} // namespace velk_tools
