// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <array>

#include <fmt/format.h>

#include "play/Changes.h"
#include "report/Html.h"
#include "report/Sections.h"

namespace velk_play
{

namespace
{

std::string fact(const std::string& value, const std::string& name)
{
    return fmt::format("<div><b>{}</b><span>{}</span></div>\n", value, name);
}

/// A row: how long in each state, and how often Select or what stands for it began.
std::vector<std::string> stateRow(const ReportData& data, const std::string& kind, const std::string& name,
                                  const std::array<double, 3>& seconds, const std::string& counted)
{
    int count = 0;
    double first = -1;
    for (const Transition& change : data.changes) {
        if (change.kind != kind || change.name != name || change.to != counted || change.from == counted) {
            continue;
        }
        first = count == 0 ? change.time : first;
        ++count;
    }
    std::vector<std::string> row{kind + " " + name};
    for (const double time : seconds) {
        row.push_back(time < 0 ? "" : fmt::format("{:.2f} s", time));
    }
    row.push_back(fmt::format("{}", count));
    row.push_back(count > 0 ? fmt::format("{:.3f} s", first) : "");
    return row;
}

template <typename Read>
std::array<double, 3> secondsIn(const ReportData& data, Read stateOf)
{
    std::array<double, 3> seconds{};
    for (std::size_t i = 0; i < data.frames.size(); ++i) {
        const auto state = static_cast<std::size_t>(stateOf(data.frames[i]));
        if (state < seconds.size()) {
            seconds[state] += data.endOf(i) - data.frames[i].time;
        }
    }
    return seconds;
}

std::string interactorTable(const ReportData& data)
{
    std::vector<std::vector<std::string>> rows;
    for (std::size_t i = 0; i < data.scene.rays.size(); ++i) {
        rows.push_back(stateRow(data, "ray", data.scene.rays[i].name,
                                secondsIn(data, [i](const Observation& seen) { return seen.rays[i].state; }),
                                "Select"));
    }
    for (std::size_t i = 0; i < data.scene.fingertips.size(); ++i) {
        rows.push_back(stateRow(
            data, "fingertip", data.scene.fingertips[i].name,
            secondsIn(data, [i](const Observation& seen) { return seen.fingertips[i].state; }), "Select"));
    }
    if (rows.empty()) {
        return {};
    }
    return table({"Interactor", "Normal", "Hover", "Select", "selections", "first at"}, rows);
}

void addGripRows(const ReportData& data, const char* kind, const char* held,
                 const std::vector<GripTrack>& tracks, std::vector<GripView> Observation::*views,
                 std::vector<std::vector<std::string>>& rows)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t finger : tracks[i].fingers) {
            auto row = stateRow(
                data, kind, fingerName(tracks[i], finger),
                secondsIn(data, [&](const Observation& seen) { return (seen.*views)[i].holds[finger]; }),
                held);
            row.erase(row.begin() + 3);
            rows.push_back(std::move(row));
        }
    }
}

std::string trackTable(const ReportData& data)
{
    std::vector<std::vector<std::string>> rows;
    addGripRows(data, "pinch", "pinching", data.scene.pinches, &Observation::pinches, rows);
    addGripRows(data, "palm", "gripping", data.scene.palms, &Observation::palms, rows);
    for (std::size_t i = 0; i < data.scene.directions.size(); ++i) {
        auto row =
            stateRow(data, "direction", data.scene.directions[i].name,
                     secondsIn(data, [i](const Observation& seen) { return seen.directions[i].active; }),
                     "recognised");
        row.erase(row.begin() + 3);
        rows.push_back(std::move(row));
    }
    if (rows.empty()) {
        return {};
    }
    return table({"Track", "off", "on", "times on", "first at"}, rows);
}

} // namespace

std::string summarySection(const ReportData& data)
{
    const Summary& summary = data.summary;
    const double duration = data.time().size();
    const std::string title = data.scene.title.empty() ? data.scene.file : data.scene.title;
    std::string html = fmt::format("<h1>{}</h1>\n<p>Recording {}, played through {} by velk-play.</p>\n",
                                   escaped(title), escaped(data.recording), escaped(data.scene.file));
    html += "<div class=\"facts\">\n";
    html += fact(fmt::format("{}", summary.frames), "frames");
    html += fact(fmt::format("{:.2f} s", duration), "of motion");
    if (duration > 0) {
        html +=
            fact(fmt::format("{:.0f} Hz", static_cast<double>(summary.frames - 1) / duration), "mean rate");
    }
    html += fact(fmt::format("{}", summary.transitions), "transitions");
    html += fact(fmt::format("{:.1f} µs", summary.meanMicroseconds), "a frame inside the library");
    html += fact(fmt::format("{:.1f} µs", summary.worstMicroseconds), "in the slowest frame");
    return html + "</div>\n" + interactorTable(data) + trackTable(data);
}

} // namespace velk_play
