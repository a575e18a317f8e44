// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "Options.h"

#include <CLI/CLI.hpp>
#include <velk/velk.h>

namespace velk_tools
{

void addOptions(CLI::App& app, Options& options)
{
    app.add_option("scene", options.scene, "Scene file (JSON)")->required();
    app.add_option("recording", options.recording, "Recording of hands or controllers (CSV)")->required();
    app.add_option(
        "--triggers", options.triggers,
        "Trigger events (CSV); by default <recording>_events.csv where that stands beside the recording");
    app.add_option("--events", options.events, "Write each transition to this file (JSON Lines)");
    app.add_option("--frames", options.frames, "Write each frame to this file (CSV)");
    app.add_option("--report", options.report, "Write a page with all that happened to this file (HTML)");
    CLI::Option* const trace = app.add_option(
        "--trace", options.trace, "Write all that can be observed, to the last bit, to this file (text)");
    app.add_option("--trace-step", options.traceStep,
                   "Trace every N-th frame and those in which something changes")
        ->check(CLI::Range(1, 1000000))
        ->needs(trace);
    app.add_flag("--quiet", options.quiet, "Print the summary only");
    app.add_flag("--real-time", options.realTime, "Play as fast as it was recorded, not as fast as possible")
        ->excludes(trace);
    app.add_flag("--full-exit", options.fullExit,
                 "Leave through the library's own shutdown, which can wait 10 s for its thread");
    app.set_version_flag("--version", [] {
        const char* version = nullptr;
        velk_Common_GetVersion(&version);
        return std::string(version);
    });
}

} // namespace velk_tools
