// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "commands/Commands.h"
#include "host/Files.h"
#include "host/InputError.h"
#include "host/recording/RecordingReader.h"
#include "host/scene/SceneReader.h"
#include "output/Outputs.h"
#include "play/Player.h"

namespace velk_tools
{

namespace
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
};

void addOptions(CLI::App& command, Options& options)
{
    command.add_option("scene", options.scene, "Scene file (JSON)")->required();
    command.add_option("recording", options.recording, "Recording of hands or controllers (CSV)")->required();
    command.add_option(
        "--triggers", options.triggers,
        "Trigger events (CSV); by default <recording>_events.csv where that stands beside the recording");
    command.add_option("--events", options.events, "Write each transition to this file (JSON Lines)");
    command.add_option("--frames", options.frames, "Write each frame to this file (CSV)");
    command.add_option("--report", options.report, "Write a page with all that happened to this file (HTML)");
    CLI::Option* const trace = command.add_option(
        "--trace", options.trace, "Write all that can be observed, to the last bit, to this file (text)");
    command
        .add_option("--trace-step", options.traceStep,
                    "Trace every N-th frame and those in which something changes")
        ->check(CLI::Range(1, 1000000))
        ->needs(trace);
    command.add_flag("--quiet", options.quiet, "Print the summary only");
    command
        .add_flag("--real-time", options.realTime, "Play as fast as it was recorded, not as fast as possible")
        ->excludes(trace);
}

Pace paceOf(const Options& options)
{
    if (!options.trace.empty()) {
        return Pace::Settled;
    }
    return options.realTime ? Pace::RealTime : Pace::AsFastAsPossible;
}

void refuseOverwriting(const Options& options)
{
    std::vector<std::string> used{options.scene, options.recording, options.triggers,
                                  eventsBeside(options.recording)};
    for (const std::string& output : {options.events, options.frames, options.report, options.trace}) {
        if (output.empty() || isDevice(output)) {
            continue;
        }
        for (const std::string& other : used) {
            if (!other.empty() && isSameFile(output, other)) {
                throw InputError(output + ": would overwrite an input or another output");
            }
        }
        used.push_back(output);
    }
}

void run(const Options& options)
{
    refuseOverwriting(options);
    const bool traces = !options.trace.empty();
    const Scene scene = traces ? withoutEasing(loadScene(options.scene)) : loadScene(options.scene);
    const Recording recording = loadRecording(options.recording, options.triggers);
    checkScene(scene, recording);

    std::list<OutputFile> files;
    std::vector<std::unique_ptr<Observer>> outputs;
    if (!options.events.empty()) {
        outputs.push_back(writeEvents(files.emplace_back(options.events)));
    }
    if (!options.frames.empty()) {
        outputs.push_back(writeFrames(files.emplace_back(options.frames), scene));
    }
    if (!options.report.empty()) {
        outputs.push_back(writeReport(files.emplace_back(options.report), scene, recording));
    }
    if (traces) {
        outputs.push_back(writeTrace(files.emplace_back(options.trace), scene, recording, options.traceStep));
    }
    outputs.push_back(printTransitions(scene, recording, options.quiet)); // once no file complains
    play(scene, recording, outputs, paceOf(options));

    for (OutputFile& file : files) {
        file.close();
    }
    for (OutputFile& file : files) { // now that all are complete
        file.keep();
    }
}

} // namespace

void addPlay(CLI::App& app, Outcome& outcome)
{
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand("play", "Play a recording through a scene");
    addOptions(*command, *options);
    command->add_flag("--full-exit", outcome.fullExit,
                      "Leave through the library's own shutdown, which can wait 10 s for its thread");
    command->callback([options] { run(*options); });
}

} // namespace velk_tools
