// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <string>

namespace CLI
{
class App;
}

namespace velk_tools
{

/// What the command line asks for. Empty files are not written.
struct Options
{
    std::string scene;
    std::string recording;
    std::string triggers;
    std::string events;
    std::string frames;
    std::string report;
    std::string trace;
    std::size_t traceStep = 1;
    bool quiet = false;
    bool realTime = false;
    bool fullExit = false;
};

void addOptions(CLI::App& app, Options& options);

} // namespace velk_tools
