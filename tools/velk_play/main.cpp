// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <velk/velk.h>

#include "commands/Commands.h"
#include "host/InputError.h"
#include "host/scene/Suggestion.h"

namespace
{

using namespace velk_tools;

constexpr int kBadInput = 2;

// Without a command the words are those of play, and so are they with one that is no file's name either,
// unless it is nearly a command's.
std::vector<std::string> wordsOf(int argc, char** argv, const CLI::App& app)
{
    std::vector<std::string> words(argv + 1, argv + argc);
    if (words.empty()) {
        return words;
    }
    const std::string first = words.front();
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    const std::vector<std::string_view> known(names.begin(), names.end());
    if (first == "-h" || first == "--help" || first == "--version" ||
        std::find(names.begin(), names.end(), first) != names.end()) {
        return words;
    }
    if (!first.empty() && first.front() != '-' && !std::filesystem::exists(first) &&
        !nearestName(first, known).empty()) {
        throw InputError(fmt::format("unknown command '{}'{}", printable(first), suggestion(first, known)));
    }
    words.insert(words.begin(), "play");
    return words;
}

void parse(CLI::App& app, std::vector<std::string> words)
{
    std::reverse(words.begin(), words.end()); // as CLI11 takes them
    app.parse(std::move(words));
}

int guardedMain(int argc, char** argv, Outcome& outcome)
{
    CLI::App app("Plays recorded motion through a scene of velk and shows what the library decides.\n"
                 "Without a command's name it does what play does.",
                 "velk-play");
    app.require_subcommand(1);
    app.set_version_flag("--version", [] {
        const char* version = nullptr;
        velk_Common_GetVersion(&version);
        return std::string(version);
    });
    app.footer(
        "Exit codes: 0 done, 1 something is not as it should be, 2 a file or an option has to be mended.");
    addPlay(app, outcome);
    addExplain(app);
    addTune(app);
    try {
        parse(app, wordsOf(argc, argv, app));
        return outcome.code;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return app.exit(error); // help or version
        }
        fmt::print(stderr, "velk-play: {}; --help tells more\n", printable(error.what()));
        return kBadInput;
    } catch (const std::runtime_error& error) { // an InputError, or standard output that is full or closed
        fmt::print(stderr, "velk-play: {}\n", error.what());
        return kBadInput;
    } catch (const std::exception& error) {
        fmt::print(stderr, "velk-play: internal error: {}\n", printable(error.what()));
        return EXIT_FAILURE;
    }
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): all but a message that can't be printed is caught
int main(int argc, char** argv)
{
    Outcome outcome;
    const int code = guardedMain(argc, argv, outcome);
    if (outcome.fullExit) {
        return code;
    }
    // A normal exit waits for the library's usage thread, which sleeps up to ten seconds. Nothing here needs
    // it.
    std::fflush(nullptr);
    std::_Exit(code);
}
