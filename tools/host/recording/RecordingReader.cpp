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
    explicit HandColumns(const CsvTable& table)
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

HandSample readHand(const CsvTable& table, std::size_t row, const HandColumns& columns)
{
    HandSample sample;
    sample.root = columns.root.read(table, row);
    for (std::size_t i = 0; i < columns.joints.size(); ++i) {
        sample.joints[i] = columns.joints[i].read(table, row);
    }
    sample.handedness = table.number(row, columns.handedness) != 0 ? 1 : 0;
    return sample;
}

template <std::size_t N>
std::size_t readName(const CsvTable& table, std::size_t row, std::size_t column,
                     const std::array<std::string_view, N>& names, const char* wanted)
{
    const auto index = indexOf(names, table.text(row, column));
    if (!index) {
        table.fail(row, fmt::format("expected {}", wanted));
    }
    return *index;
}

/// The frame for a row: rows of the same time, one for each hand, share one.
Frame& frameFor(const CsvTable& table, std::size_t row, double time, Recording& recording)
{
    if (recording.frames.empty() || time > recording.frames.back().time) {
        Frame& frame = recording.frames.emplace_back();
        frame.time = time;
        return frame;
    }
    if (time < recording.frames.back().time) {
        table.fail(row, "the time goes back");
    }
    return recording.frames.back();
}

void readHands(const CsvTable& table, Recording& recording)
{
    const std::size_t time = table.column("time");
    const HandColumns columns(table);
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        Frame& frame = frameFor(table, row, table.number(row, time), recording);
        auto& hand =
            frame.hands[readName(table, row, columns.hand, kSideNames, "'left' or 'right' in column 'hand'")];
        if (hand) {
            table.fail(row, "a second row for this hand and time");
        }
        hand = readHand(table, row, columns);
    }
}

void readDevices(const CsvTable& table, Recording& recording)
{
    const std::size_t time = table.column("time");
    std::vector<PoseColumns> columns;
    columns.reserve(std::size(kDeviceNames));
    for (const std::string_view device : kDeviceNames) {
        columns.emplace_back(table, device);
    }
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        const std::size_t before = recording.frames.size();
        Frame& frame = frameFor(table, row, table.number(row, time), recording);
        if (recording.frames.size() == before) {
            table.fail(row, "a second row for this time");
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!columns[i].isEmpty(table, row)) {
                frame.devices[i] = columns[i].read(table, row);
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

Recording parseRecording(const std::string& name, std::string_view text)
{
    const CsvTable table(name, text);
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

void addTriggers(Recording& recording, const std::string& name, std::string_view text)
{
    constexpr std::array<std::string_view, 2> kEdges{"up", "down"};
    const CsvTable table(name, text);
    const std::size_t timeColumn = table.column("time");
    const std::size_t device = table.column("device");
    const std::size_t button = table.column("button");
    const std::size_t edge = table.column("event");
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        const double time = table.number(row, timeColumn);
        const auto pressed = static_cast<Device>(
            readName(table, row, device, kDeviceNames, "'head', 'left' or 'right' in column 'device'"));
        const bool down = readName(table, row, edge, kEdges, "'down' or 'up' in column 'event'") == 1;
        const auto frame = std::lower_bound(recording.frames.begin(), recording.frames.end(), time,
                                            [](const Frame& f, double t) { return f.time < t; });
        if (table.text(row, button) == "trigger" && frame != recording.frames.end()) {
            frame->triggers.push_back({pressed, down});
        }
    }
}

Recording loadRecording(const std::string& path, const std::string& triggersPath)
{
    Recording recording = parseRecording(path, readTextFile(path));
    const std::string events =
        triggersPath.empty() && recording.hasDevices() ? eventsBeside(path) : triggersPath;
    if (!events.empty()) {
        addTriggers(recording, events, readTextFile(events));
    }
    return recording;
}

} // namespace velk_tools
