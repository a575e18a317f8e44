// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "tools/host/Files.h"
#include "tools/host/recording/PoseColumns.h"

#include <string>
#include <vector>

namespace velk::tests
{

/// A row of a hand recording: its time in seconds or the name of its pose, as the file has it, and its poses
/// in the order of their columns.
struct RecordedHand
{
    std::string label;
    std::vector<Posef> poses;
};

/// The rows of one hand, "left" or "right", in a file below data/.
inline std::vector<RecordedHand> readRecording(const std::string& file, const std::string& hand)
{
    std::ifstream text = velk_tools::openToRead(VELK_DATA_DIR "/" + file);
    velk_tools::CsvReader table(file, text);
    std::vector<velk_tools::PoseColumns> columns;
    for (const std::string& column : table.columns()) {
        if (column.ends_with("_px")) {
            columns.emplace_back(table, column.substr(0, column.size() - 3));
        }
    }
    std::vector<RecordedHand> rows;
    while (table.next()) {
        if (table.text(table.column("hand")) == hand) {
            RecordedHand& read = rows.emplace_back(RecordedHand{std::string(table.text(0)), {}});
            for (const velk_tools::PoseColumns& pose : columns) {
                const auto [q, p] = pose.read(table);
                read.poses.push_back({{q.x, q.y, q.z, q.w}, {p.x, p.y, p.z}});
            }
        }
    }
    return rows;
}

} // namespace velk::tests
