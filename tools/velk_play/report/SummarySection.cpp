// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>

#include <fmt/format.h>

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

bool isInteractor(Kind kind)
{
    return kind == Kind::Ray || kind == Kind::Fingertip;
}

/// For how many seconds an interactor was in each state, or anything else off and on.
std::vector<std::string> secondsCells(const ReportData& data, const Watched& who)
{
    const Seconds seconds = secondsIn(data, [&who](const Observation& seen) {
        const State state = who.doing(seen).state;
        return isInteractor(who.kind) ? static_cast<int>(state) : int{state == heldState(who.kind)};
    });
    std::vector<std::string> cells;
    for (const double time : seconds.in) {
        cells.push_back(fmt::format("{:.2f} s", time));
    }
    cells.resize(isInteractor(who.kind) ? 3 : 2);
    return cells;
}

/// A row for each of the interactors, or of all others: the seconds, and how often Select or what stands for
/// it began.
std::string tableOf(const ReportData& data, bool interactors, const std::vector<std::string>& head)
{
    std::vector<std::vector<std::string>> rows;
    for (const Watched& who : data.watched) {
        if (isInteractor(who.kind) != interactors) {
            continue;
        }
        std::vector<std::string>& row = rows.emplace_back(secondsCells(data, who));
        row.insert(row.begin(), fmt::format("{} {}", nameOf(who.kind), who.name));
        const auto starts = [&who](const Transition& change) {
            return change.kind == who.kind && change.name == who.name && isStart(change);
        };
        const auto first = std::find_if(data.changes.begin(), data.changes.end(), starts);
        row.push_back(fmt::format("{}", std::count_if(first, data.changes.end(), starts)));
        row.push_back(first == data.changes.end() ? "" : fmt::format("{:.3f} s", first->time));
    }
    return rows.empty() ? std::string() : table(head, rows);
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
    return html + "</div>\n" +
           tableOf(data, true, {"Interactor", "Normal", "Hover", "Select", "selections", "first at"}) +
           tableOf(data, false, {"Track", "off", "on", "times on", "first at"});
}

} // namespace velk_tools
