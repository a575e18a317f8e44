// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdlib>

namespace CLI
{
class App;
}

/// The commands of velk-play. Each adds its options and what it does, and throws InputError for what the user
/// has to mend.
namespace velk_tools
{

/// How the program ends.
struct Outcome
{
    int code = EXIT_SUCCESS;
    bool fullExit = false; ///< Through the library's own shutdown.
};

void addPlay(CLI::App& app, Outcome& outcome);
void addExplain(CLI::App& app);
void addTune(CLI::App& app);

} // namespace velk_tools
