// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tune/Tune.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "host/Files.h"
#include "host/InputError.h"
#include "host/recording/RecordingReader.h"
#include "host/scene/SceneReader.h"
#include "play/Player.h"
#include "play/Progress.h"
#include "tune/Marks.h"
#include "tune/Smoothness.h"
#include "tune/TuneOutput.h"
#include "tune/Variation.h"

namespace velk_tools
{

namespace
{

class StartKeeper : public Observer
{
public:
    void frame(const Observation&, const std::vector<Transition>& changes) override
    {
        std::copy_if(changes.begin(), changes.end(), std::back_inserter(starts), isStart);
    }

    std::vector<Transition> starts;
};

/// Passes on, so that who watches a run can be asked after it.
class Forward : public Observer
{
public:
    explicit Forward(Observer& to)
        : to_(to)
    {
    }
    void frame(const Observation& seen, const std::vector<Transition>& changes) override
    {
        to_.frame(seen, changes);
    }

private:
    Observer& to_;
};

Trial playOnce(const Scene& scene, const Recording& recording, const std::vector<Meant>& marks,
               double tolerance)
{
    StartKeeper starts;
    SmoothnessMeter meter;
    std::vector<std::unique_ptr<Observer>> observers;
    observers.push_back(std::make_unique<Forward>(starts));
    observers.push_back(std::make_unique<Forward>(meter));
    play(scene, recording, observers, Pace::AsFastAsPossible);

    Trial trial;
    trial.starts = starts.starts.size();
    if (!marks.empty()) {
        trial.judgement = judge(marks, starts.starts, tolerance);
    }
    if (meter.hasHand()) {
        trial.smoothness = meter.measure();
    }
    return trial;
}

// How far from no jitter at no lag, each as a share: of the recorded jitter, and of the longest lag of all.
double unevenness(const Trial& trial, double longestLag)
{
    if (!trial.smoothness) {
        return trial.judgement ? std::abs(trial.judgement->meanDelay) : 0;
    }
    const double jitter = trial.smoothness->jitter / std::max(trial.smoothness->recordedJitter, 1e-9);
    return std::hypot(jitter, trial.smoothness->lag / std::max(longestLag, 1e-9));
}

std::size_t findBest(const std::vector<Trial>& trials)
{
    double longestLag = 0;
    for (const Trial& trial : trials) {
        longestLag = std::max(longestLag, trial.smoothness ? trial.smoothness->lag : 0);
    }
    const auto rank = [&](const Trial& trial) {
        return std::pair(trial.judgement ? trial.judgement->faults() : 0, unevenness(trial, longestLag));
    };
    const auto best = std::min_element(trials.begin(), trials.end(),
                                       [&](const Trial& a, const Trial& b) { return rank(a) < rank(b); });
    return static_cast<std::size_t>(best - trials.begin());
}

nlohmann::json readSceneJson(const std::string& path)
{
    const std::string text = readTextFile(path);
    parseScene(path, text); // complains where the file is wrong as it stands
    return nlohmann::json::parse(text);
}

void refuseOverwriting(const TuneOptions& options)
{
    for (const std::string& input : {options.scene, options.recording, options.triggers, options.marks}) {
        if (!input.empty() && !options.report.empty() && !isDevice(options.report) &&
            isSameFile(options.report, input)) {
            throw InputError(options.report + ": would overwrite an input");
        }
    }
}

} // namespace

void tune(const TuneOptions& options)
{
    refuseOverwriting(options);
    Tuning tuning;
    for (const std::string& text : options.variations) {
        tuning.variations.push_back(parseVariation(text));
    }
    const nlohmann::json sceneJson = readSceneJson(options.scene);
    const Recording recording = loadRecording(options.recording, options.triggers);
    std::vector<Meant> marks;
    if (!options.marks.empty()) {
        std::ifstream file = openToRead(options.marks);
        marks = parseMarks(options.marks, file);
    }
    std::optional<OutputFile> report;
    if (!options.report.empty()) {
        report.emplace(options.report);
    }

    const std::vector<Combination> combinations = combinationsOf(tuning.variations);
    Progress progress(combinations.size());
    for (const Combination& combination : combinations) {
        nlohmann::json changed = sceneJson;
        for (std::size_t i = 0; i < combination.size(); ++i) {
            setInScene(changed, tuning.variations[i].path, combination[i]);
        }
        const Scene scene = parseScene(options.scene, changed.dump());
        checkScene(scene, recording);
        tuning.title = scene.title.empty() ? options.scene : scene.title;
        tuning.trials.push_back(playOnce(scene, recording, marks, options.tolerance));
        tuning.trials.back().values = combination;
        progress.advanceTo(tuning.trials.size());
    }
    progress.clear();
    tuning.best = findBest(tuning.trials);
    tuning.recording = recording.name;
    tuning.markCount = marks.size();

    options.json ? printAsJson(tuning) : printAsTable(tuning);
    if (report) {
        report->write(reportOf(tuning));
        report->close();
        report->keep();
    }
}

} // namespace velk_tools
