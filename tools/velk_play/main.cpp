// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <list>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "Options.h"
#include "host/Files.h"
#include "host/InputError.h"
#include "host/recording/RecordingReader.h"
#include "host/scene/SceneReader.h"
#include "output/EventWriter.h"
#include "output/FrameWriter.h"
#include "output/TraceWriter.h"
#include "output/TransitionPrinter.h"
#include "play/Player.h"
#include "report/ReportWriter.h"

namespace
{

using velk_tools::Options;

constexpr int kBadInput = 2;

velk_tools::Pace paceOf(const Options& options)
{
    using velk_tools::Pace;
    if (!options.trace.empty()) {
        return Pace::Settled;
    }
    return options.realTime ? Pace::RealTime : Pace::AsFastAsPossible;
}

void refuseOverwriting(const Options& options)
{
    std::vector<std::string> used{options.scene, options.recording, options.triggers,
                                  velk_tools::eventsBeside(options.recording)};
    for (const std::string& output : {options.events, options.frames, options.report, options.trace}) {
        if (output.empty() || velk_tools::isDevice(output)) {
            continue;
        }
        for (const std::string& other : used) {
            if (!other.empty() && velk_tools::isSameFile(output, other)) {
                throw velk_tools::InputError(output + ": would overwrite an input or another output");
            }
        }
        used.push_back(output);
    }
}

void run(const Options& options)
{
    using namespace velk_tools;
    refuseOverwriting(options);
    const bool traces = !options.trace.empty();
    const Scene scene = traces ? withoutEasing(loadScene(options.scene)) : loadScene(options.scene);
    const Recording recording = loadRecording(options.recording, options.triggers);
    checkScene(scene, recording);

    std::list<OutputFile> files;
    std::vector<std::unique_ptr<Observer>> outputs;
    outputs.push_back(std::make_unique<TransitionPrinter>(options.quiet));
    if (!options.events.empty()) {
        outputs.push_back(std::make_unique<EventWriter>(files.emplace_back(options.events)));
    }
    if (!options.frames.empty()) {
        outputs.push_back(std::make_unique<FrameWriter>(files.emplace_back(options.frames)));
    }
    if (!options.report.empty()) {
        outputs.push_back(std::make_unique<ReportWriter>(files.emplace_back(options.report)));
    }
    if (traces) {
        outputs.push_back(
            std::make_unique<TraceWriter>(files.emplace_back(options.trace), options.traceStep));
    }

    std::vector<Observer*> observers;
    observers.reserve(outputs.size());
    for (const auto& output : outputs) {
        observers.push_back(output.get());
    }
    play(scene, recording, observers, paceOf(options));

    for (OutputFile& file : files) {
        file.close();
    }
    for (OutputFile& file : files) { // now that all are complete
        file.keep();
    }
}

int guardedMain(int argc, char** argv, Options& options)
{
    CLI::App app("Plays recorded motion through a scene of velk and shows what the library decides.",
                 "velk-play");
    velk_tools::addOptions(app, options);
    try {
        app.parse(argc, argv);
        run(options);
        return EXIT_SUCCESS;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return app.exit(error); // help or version
        }
        fmt::print(stderr, "velk-play: {}; --help tells more\n", velk_tools::printable(error.what()));
        return kBadInput;
    } catch (const velk_tools::InputError& error) {
        fmt::print(stderr, "velk-play: {}\n", error.what());
        return kBadInput;
    } catch (const std::system_error& error) { // standard output, which is full or closed
        fmt::print(stderr, "velk-play: {}\n", error.what());
        return kBadInput;
    } catch (const std::exception& error) {
        fmt::print(stderr, "velk-play: internal error: {}\n", velk_tools::printable(error.what()));
        return EXIT_FAILURE;
    }
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): all but a message that can't be printed is caught
int main(int argc, char** argv)
{
    Options options;
    const int code = guardedMain(argc, argv, options);
    if (options.fullExit) {
        return code;
    }
    // A normal exit waits for the library's usage thread, which sleeps up to ten seconds. Nothing here needs
    // it.
    std::fflush(nullptr);
    std::_Exit(code);
}
