// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/recording/CsvTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "host/InputError.h"

namespace velk_tools
{

namespace
{

std::vector<std::string> split(std::string_view line)
{
    std::vector<std::string> cells;
    for (std::size_t begin = 0;;) {
        const std::size_t end = line.find(',', begin);
        cells.emplace_back(line.substr(begin, end - begin));
        if (end == std::string_view::npos) {
            return cells;
        }
        begin = end + 1;
    }
}

/// What a message may quote of a cell: short and printable.
std::string shown(std::string_view cell)
{
    constexpr std::size_t kLongest = 24;
    std::string text(cell.substr(0, kLongest));
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c > '~'; }, '?');
    return text;
}

} // namespace

CsvTable::CsvTable(std::string name, std::string_view text)
    : name_(std::move(name))
{
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string_view line = text.substr(begin, end - begin);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        addLine(++lastLine_, line);
        begin = end + 1;
    }
    if (columns_.empty()) {
        failAtLine(std::max<std::size_t>(lastLine_, 1), "has no line of column names");
    }
}

void CsvTable::addLine(std::size_t line, std::string_view text)
{
    if (text.starts_with('#') || text.empty()) {
        return;
    }
    if (columns_.empty()) {
        columns_ = split(text);
        return;
    }
    Row row{line, split(text)};
    if (row.cells.size() != columns_.size()) {
        failAtLine(line, fmt::format("has {} cells where the table has {} columns", row.cells.size(),
                                     columns_.size()));
    }
    rows_.push_back(std::move(row));
}

bool CsvTable::hasColumn(std::string_view column) const
{
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

std::size_t CsvTable::column(std::string_view column) const
{
    const auto found = std::find(columns_.begin(), columns_.end(), column);
    if (found == columns_.end()) {
        throw InputError(fmt::format("{}: has no column '{}'", name_, column));
    }
    return static_cast<std::size_t>(found - columns_.begin());
}

double CsvTable::number(std::size_t row, std::size_t column) const
{
    const std::string& cell = rows_[row].cells[column];
    double value = 0;
    const char* end = cell.data() + cell.size();
    const auto [stop, error] = std::from_chars(cell.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(static_cast<float>(value))) {
        fail(row, fmt::format("'{}' in column '{}' is not a number", shown(cell), columns_[column]));
    }
    return value;
}

void CsvTable::fail(std::size_t row, const std::string& message) const
{
    failAtLine(rows_[row].line, message);
}

void CsvTable::failAtLine(std::size_t line, const std::string& message) const
{
    throw InputError(fmt::format("{}:{}: {}", name_, line, message));
}

} // namespace velk_tools
