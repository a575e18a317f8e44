// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/recording/RecordingReader.h"

#include <algorithm>
#include <filesystem>

#include <fmt/format.h>

#include "host/Files.h"
#include "host/InputError.h"
#include "host/recording/PoseColumns.h"

namespace velk_tools
{

namespace
{

struct HandColumns
{
    explicit HandColumns(const CsvReader& table)
        : hand(table.column("hand"))
        , handedness(table.column("handedness"))
        , root(table, "root")
    {
        for (const std::string_view joint : kJointNames) {
            joints.emplace_back(table, joint);
        }
    }

    std::size_t hand;
    std::size_t handedness;
    PoseColumns root;
    std::vector<PoseColumns> joints;
};

std::unique_ptr<const HandSample> readHand(const CsvReader& table, const HandColumns& columns)
{
    auto sample = std::make_unique<HandSample>();
    sample->root = columns.root.read(table);
    for (std::size_t i = 0; i < columns.joints.size(); ++i) {
        sample->joints[i] = columns.joints[i].read(table);
    }
    sample->handedness = table.number(columns.handedness) != 0 ? 1 : 0;
    return sample;
}

template <std::size_t N>
std::size_t readName(const CsvReader& table, std::size_t column, const std::array<std::string_view, N>& names,
                     const char* wanted)
{
    const auto index = indexOf(names, table.text(column));
    if (!index) {
        table.fail(fmt::format("expected {}", wanted));
    }
    return *index;
}

/// The frame for a row: rows of the same time, one for each hand, share one.
Frame& frameFor(const CsvReader& table, double time, Recording& recording)
{
    if (recording.frames.empty() || time > recording.frames.back().time) {
        Frame& frame = recording.frames.emplace_back();
        frame.time = time;
        return frame;
    }
    if (time < recording.frames.back().time) {
        table.fail("the time goes back");
    }
    return recording.frames.back();
}

void readHands(CsvReader& table, Recording& recording)
{
    const std::size_t time = table.column("time");
    const HandColumns columns(table);
    while (table.next()) {
        Frame& frame = frameFor(table, table.number(time), recording);
        auto& hand =
            frame.hands[readName(table, columns.hand, kSideNames, "'left' or 'right' in column 'hand'")];
        if (hand) {
            table.fail("a second row for this hand and time");
        }
        hand = readHand(table, columns);
    }
}

void readDevices(CsvReader& table, Recording& recording)
{
    const std::size_t time = table.column("time");
    std::vector<PoseColumns> columns;
    columns.reserve(std::size(kDeviceNames));
    for (const std::string_view device : kDeviceNames) {
        columns.emplace_back(table, device);
    }
    while (table.next()) {
        const std::size_t before = recording.frames.size();
        Frame& frame = frameFor(table, table.number(time), recording);
        if (recording.frames.size() == before) {
            table.fail("a second row for this time");
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!columns[i].isEmpty(table)) {
                frame.devices[i] = columns[i].read(table);
            }
        }
    }
}

} // namespace

std::string eventsBeside(const std::string& path)
{
    std::filesystem::path events(path);
    events.replace_filename(events.stem().string() + "_events.csv");
    std::error_code ignored; // The name may be too long for a file.
    return std::filesystem::exists(events, ignored) ? events.string() : std::string();
}

Recording parseRecording(const std::string& name, std::istream& text)
{
    CsvReader table(name, text);
    Recording recording;
    recording.name = printable(std::filesystem::path(name).stem().string());
    if (table.hasColumn("root_px")) {
        readHands(table, recording);
    } else if (table.hasColumn("head_px")) {
        readDevices(table, recording);
    } else {
        throw InputError(name + ": has neither the columns of hands ('root_px') nor of devices ('head_px')");
    }
    if (recording.frames.empty()) {
        throw InputError(name + ": has no rows");
    }
    return recording;
}

void addTriggers(Recording& recording, const std::string& name, std::istream& text)
{
    constexpr std::array<std::string_view, 2> kEdges{"up", "down"};
    CsvReader table(name, text);
    const std::size_t timeColumn = table.column("time");
    const std::size_t device = table.column("device");
    const std::size_t button = table.column("button");
    const std::size_t edge = table.column("event");
    while (table.next()) {
        const double time = table.number(timeColumn);
        const auto pressed = static_cast<Device>(
            readName(table, device, kDeviceNames, "'head', 'left' or 'right' in column 'device'"));
        const bool down = readName(table, edge, kEdges, "'down' or 'up' in column 'event'") == 1;
        const auto frame = std::lower_bound(recording.frames.begin(), recording.frames.end(), time,
                                            [](const Frame& f, double t) { return f.time < t; });
        if (table.text(button) == "trigger" && frame != recording.frames.end()) {
            frame->triggers.push_back({pressed, down});
        }
    }
}

Recording loadRecording(const std::string& path, const std::string& triggersPath)
{
    std::ifstream file = openToRead(path);
    Recording recording = parseRecording(path, file);
    const std::string events =
        triggersPath.empty() && recording.hasDevices() ? eventsBeside(path) : triggersPath;
    if (!events.empty()) {
        std::ifstream eventsFile = openToRead(events);
        addTriggers(recording, events, eventsFile);
    }
    return recording;
}

} // namespace velk_tools
