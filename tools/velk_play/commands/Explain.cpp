// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands/Commands.h"
#include "explain/ExplainOutput.h"
#include "explain/Explainer.h"
#include "host/InputError.h"
#include "host/recording/RecordingReader.h"
#include "host/scene/SceneReader.h"
#include "play/Player.h"

namespace velk_tools
{

namespace
{

struct Options
{
    std::string scene;
    std::string recording;
    std::string triggers;
    std::size_t press = 0;
    std::optional<double> at;
    std::string target;
    bool misses = false;
    bool json = false;
};

/// Lends an explainer to the player.
class Lent : public Observer
{
public:
    explicit Lent(Observer& to)
        : to_(to)
    {
    }
    void begin(const World& world) override { to_.begin(world); }
    void frame(const Observation& seen, const std::vector<Transition>& changes) override
    {
        to_.frame(seen, changes);
    }
    void end(const Summary& summary) override { to_.end(summary); }

private:
    Observer& to_;
};

bool isWanted(const Episode& episode, const Options& options)
{
    constexpr double kAround = 0.25; // seconds
    return (!options.misses || episode.happening == Happening::Miss) &&
           (options.target.empty() || options.target == episode.target) &&
           (!options.at || (episode.from - kAround <= *options.at && *options.at <= episode.to + kAround));
}

std::vector<Episode> chosen(std::vector<Episode> episodes, const Options& options)
{
    std::stable_sort(episodes.begin(), episodes.end(),
                     [](const Episode& a, const Episode& b) { return a.from < b.from; });
    std::erase_if(episodes, [&options](const Episode& episode) { return !isWanted(episode, options); });
    if (options.press == 0) {
        return episodes;
    }
    std::size_t presses = 0;
    for (Episode& episode : episodes) {
        presses += episode.happening == Happening::Press || episode.happening == Happening::Start;
        if (presses == options.press) {
            return {std::move(episode)};
        }
    }
    throw InputError(fmt::format("--press {}: there are {}", options.press, presses));
}

void explain(const Options& options)
{
    const Scene scene = loadScene(options.scene);
    const Recording recording = loadRecording(options.recording, options.triggers);
    checkScene(scene, recording);
    Explainer explainer(scene);
    std::vector<std::unique_ptr<Observer>> observers;
    observers.push_back(std::make_unique<Lent>(explainer));
    play(scene, recording, observers, Pace::AsFastAsPossible);
    for (const Episode& episode : chosen(explainer.episodes(), options)) {
        options.json ? printAsJson(episode) : printAsText(episode);
    }
}

} // namespace

void addExplain(CLI::App& app)
{
    const auto options = std::make_shared<Options>();
    CLI::App* const command = app.add_subcommand(
        "explain", "Name the rules that let each press through, and those that refused what nearly happened");
    command->add_option("scene", options->scene, "Scene file (JSON)")->required();
    command->add_option("recording", options->recording, "Recording of hands or controllers (CSV)")
        ->required();
    command->add_option("--triggers", options->triggers, "Trigger events (CSV), as for play");
    command->add_option("--press", options->press, "The N-th press, pinch or grip alone")
        ->check(CLI::PositiveNumber);
    command->add_option("--at", options->at, "What happened within a quarter of a second of this time");
    command->add_option("--target", options->target, "What is about this panel, box or patch");
    command->add_flag("--misses", options->misses, "Only what nearly happened");
    command->add_flag("--json", options->json, "Print an object for each (JSON Lines)");
    command->callback([options] { explain(*options); });
}

} // namespace velk_tools
