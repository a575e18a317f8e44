// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <array>

#include <fmt/format.h>

#include "play/Changes.h"
#include "report/Html.h"
#include "report/Sections.h"

namespace velk_tools
{

namespace
{

std::string fact(const std::string& value, const std::string& name)
{
    return fmt::format("<div><b>{}</b><span>{}</span></div>\n", value, name);
}

/// A row: how long in each state, and how often Select or what stands for it began.
std::vector<std::string> stateRow(const ReportData& data, Kind kind, const std::string& name,
                                  const Seconds& seconds)
{
    int count = 0;
    double first = -1;
    for (const Transition& change : data.changes) {
        if (change.kind != kind || change.name != name || !isStart(change)) {
            continue;
        }
        first = count == 0 ? change.time : first;
        ++count;
    }
    std::vector<std::string> row{fmt::format("{} {}", nameOf(kind), name)};
    for (const double time : seconds.in) {
        row.push_back(time < 0 ? "" : fmt::format("{:.2f} s", time));
    }
    row.push_back(fmt::format("{}", count));
    row.push_back(count > 0 ? fmt::format("{:.3f} s", first) : "");
    return row;
}

std::string interactorTable(const ReportData& data)
{
    std::vector<std::vector<std::string>> rows;
    for (std::size_t i = 0; i < data.scene.rays.size(); ++i) {
        rows.push_back(
            stateRow(data, Kind::Ray, data.scene.rays[i].name,
                     secondsIn(data, [i](const Observation& seen) { return seen.rays[i].state; })));
    }
    for (std::size_t i = 0; i < data.scene.fingertips.size(); ++i) {
        rows.push_back(
            stateRow(data, Kind::Fingertip, data.scene.fingertips[i].name,
                     secondsIn(data, [i](const Observation& seen) { return seen.fingertips[i].state; })));
    }
    if (rows.empty()) {
        return {};
    }
    return table({"Interactor", "Normal", "Hover", "Select", "selections", "first at"}, rows);
}

void addGripRows(const ReportData& data, Kind kind, const std::vector<GripTrack>& tracks,
                 std::vector<GripView> Observation::*views, std::vector<std::vector<std::string>>& rows)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t finger : tracks[i].fingers) {
            auto row = stateRow(
                data, kind, fingerName(tracks[i], finger),
                secondsIn(data, [&](const Observation& seen) { return (seen.*views)[i].holds[finger]; }));
            row.erase(row.begin() + 3);
            rows.push_back(std::move(row));
        }
    }
}

std::string trackTable(const ReportData& data)
{
    std::vector<std::vector<std::string>> rows;
    addGripRows(data, Kind::Pinch, data.scene.pinches, &Observation::pinches, rows);
    addGripRows(data, Kind::Palm, data.scene.palms, &Observation::palms, rows);
    for (std::size_t i = 0; i < data.scene.directions.size(); ++i) {
        auto row =
            stateRow(data, Kind::Direction, data.scene.directions[i].name,
                     secondsIn(data, [i](const Observation& seen) { return seen.directions[i].active; }));
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

} // namespace velk_tools
