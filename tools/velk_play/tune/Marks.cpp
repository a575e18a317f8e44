// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tune/Marks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "host/Files.h"
#include "host/InputError.h"
#include "host/scene/Suggestion.h"

namespace velk_tools
{

namespace
{

constexpr std::array kKinds{Kind::Ray, Kind::Fingertip, Kind::Pinch, Kind::Palm, Kind::Direction};

Kind kindNamed(const std::string& name)
{
    std::vector<std::string_view> names;
    for (const Kind kind : kKinds) {
        if (nameOf(kind) == name) {
            return kind;
        }
        names.push_back(nameOf(kind));
    }
    throw InputError(fmt::format("unknown kind '{}'{}", printable(name), suggestion(name, names)));
}

Meant parseMark(const std::string& line)
{
    std::array<std::string, 4> cells;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::size_t end = line.find(',', begin);
        if ((end == line.npos) != (i + 1 == cells.size())) {
            throw InputError("expected time, kind, name and target");
        }
        cells[i] = line.substr(begin, end - begin);
        begin = end + 1;
    }
    Meant mark{0, kindNamed(cells[1]), cells[2], cells[3]};
    const char* const end = cells[0].data() + cells[0].size();
    const auto [stop, error] = std::from_chars(cells[0].data(), end, mark.time);
    if (error != std::errc() || stop != end || !std::isfinite(mark.time)) {
        throw InputError(fmt::format("'{}' is no time", printable(cells[0])));
    }
    return mark;
}

bool fits(const Meant& mark, const Transition& start)
{
    return mark.kind == start.kind && (mark.name.empty() || mark.name == start.name);
}

/// A start of something held, and what became of it.
struct Start
{
    const Transition* change;
    bool isTaken = false;
};

// With ends of different quality the target goes before the time.
Start* nearest(const Meant& mark, std::vector<Start>& starts, double tolerance)
{
    Start* best = nullptr;
    const auto rank = [&mark](const Start& start) {
        const bool isOther = !mark.target.empty() && mark.target != start.change->target;
        return std::pair(isOther, std::abs(start.change->time - mark.time));
    };
    for (Start& start : starts) {
        if (!start.isTaken && fits(mark, *start.change) &&
            std::abs(start.change->time - mark.time) <= tolerance &&
            (best == nullptr || rank(start) < rank(*best))) {
            best = &start;
        }
    }
    return best;
}

} // namespace

std::vector<Meant> parseMarks(const std::string& file, std::istream& text)
{
    std::vector<Meant> marks;
    std::string line;
    bool isHead = true;
    for (std::size_t number = 1; std::getline(text, line); ++number) {
        if (number == 1) {
            dropByteOrderMark(line);
        }
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        if (line.empty() || line.front() == '#') {
            continue;
        }
        try {
            if (isHead && line != "time,kind,name,target") {
                throw InputError("expected the columns time,kind,name,target");
            }
            if (!isHead) {
                marks.push_back(parseMark(line));
            }
        } catch (const InputError& error) {
            throw InputError(fmt::format("{}:{}: {}", file, number, error.what()));
        }
        isHead = false;
    }
    if (marks.empty()) {
        throw InputError(file + ": no marks");
    }
    return marks;
}

Judgement judge(const std::vector<Meant>& marks, const std::vector<Transition>& changes, double tolerance)
{
    std::vector<Start> starts;
    for (const Transition& change : changes) {
        const bool isMarked = std::any_of(marks.begin(), marks.end(),
                                          [&](const Meant& mark) { return mark.kind == change.kind; });
        if (isStart(change) && isMarked) {
            starts.push_back({&change});
        }
    }
    Judgement judgement;
    for (const Meant& mark : marks) {
        Start* const start = nearest(mark, starts, tolerance);
        if (start == nullptr) {
            ++judgement.misses;
            continue;
        }
        start->isTaken = true;
        if (!mark.target.empty() && mark.target != start->change->target) {
            ++judgement.wrong;
            continue;
        }
        ++judgement.hits;
        judgement.meanDelay +=
            (start->change->time - mark.time - judgement.meanDelay) / static_cast<double>(judgement.hits);
    }
    for (const Start& start : starts) {
        const bool isMeant = std::any_of(marks.begin(), marks.end(), [&](const Meant& mark) {
            return fits(mark, *start.change) && std::abs(start.change->time - mark.time) <= tolerance;
        });
        judgement.doubles += !start.isTaken && isMeant;
        judgement.extra += !start.isTaken && !isMeant;
    }
    return judgement;
}

} // namespace velk_tools
