// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include <fstream>
#include <sstream>
#include <stdexcept>
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

inline std::vector<std::string> splitAtCommas(const std::string& line)
{
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) {
        cells.push_back(cell);
    }
    return cells;
}

/// The rows of one hand, "left" or "right", in a file below data/.
inline std::vector<RecordedHand> readRecording(const std::string& file, const std::string& hand)
{
    std::ifstream stream(VELK_DATA_DIR "/" + file);
    std::vector<RecordedHand> rows;
    std::vector<std::string> columns;
    for (std::string line; std::getline(stream, line);) {
        const std::vector<std::string> cells = splitAtCommas(line);
        if (line.starts_with('#') || columns.empty() || cells.at(1) != hand) {
            columns = line.starts_with('#') || !columns.empty() ? columns : cells;
            continue;
        }
        RecordedHand& row = rows.emplace_back(RecordedHand{cells[0], {}});
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].ends_with("_px")) {
                const auto n = [&](std::size_t k) { return std::stof(cells.at(i + k)); };
                row.poses.push_back({Quatf(n(3), n(4), n(5), n(6)).Normalized(), {n(0), n(1), n(2)}});
            }
        }
    }
    return rows.empty() ? throw std::runtime_error("nothing read from " + file) : rows;
}

} // namespace velk::tests
