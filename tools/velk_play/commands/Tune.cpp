// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <memory>

#include <CLI/CLI.hpp>

#include "commands/Commands.h"
#include "tune/Tune.h"

namespace velk_tools
{

void addTune(CLI::App& app)
{
    const auto options = std::make_shared<TuneOptions>();
    CLI::App* const command = app.add_subcommand(
        "tune", "Play a recording with all combinations of settings, and show how each did");
    command->add_option("scene", options->scene, "Scene file (JSON)")->required();
    command->add_option("recording", options->recording, "Recording of hands or controllers (CSV)")
        ->required();
    command->add_option("--triggers", options->triggers, "Trigger events (CSV), as for play");
    command
        ->add_option("--vary", options->variations,
                     "What to vary: PATH=FROM:TO:STEP or PATH=VALUE,VALUE,...; a path is "
                     "patches.NAME.config.enterHoverNormal or hands.*.filter.JointRotationBeta. Give it once "
                     "for each setting")
        ->required()
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->add_option("--marks", options->marks, "What was meant (CSV: time,kind,name,target)");
    command->add_option("--tolerance", options->tolerance, "Seconds that a start may be off its mark")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_option("--report", options->report, "Write the table and plots to this file (HTML)");
    command->add_flag("--json", options->json, "Print an object for each combination (JSON Lines)");
    command->callback([options] { tune(*options); });
}

} // namespace velk_tools
