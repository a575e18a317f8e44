// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/recording/CsvReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "host/Files.h"
#include "host/InputError.h"

namespace velk_tools
{

namespace
{

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

CsvReader::CsvReader(std::string name, std::istream& in)
    : name_(std::move(name))
    , in_(in)
{
    if (!readLine()) {
        lineNumber_ = std::max<std::size_t>(lineNumber_, 1);
        fail("has no line of column names");
    }
    columns_.assign(cells_.begin(), cells_.end());
}

bool CsvReader::readLine()
{
    do {
        if (!std::getline(in_, line_)) {
            return false;
        }
        if (++lineNumber_ == 1) {
            dropByteOrderMark(line_);
        }
        if (line_.ends_with('\r')) {
            line_.pop_back();
        }
    } while (line_.empty() || line_.starts_with('#'));

    cells_.clear();
    for (std::string_view rest = line_;;) {
        const std::size_t comma = rest.find(',');
        cells_.push_back(rest.substr(0, comma));
        if (comma == std::string_view::npos) {
            return true;
        }
        rest.remove_prefix(comma + 1);
    }
}

bool CsvReader::next()
{
    if (!readLine()) {
        return false;
    }
    if (cells_.size() != columns_.size()) {
        fail(fmt::format("has {} cells where the table has {} columns", cells_.size(), columns_.size()));
    }
    return true;
}

bool CsvReader::hasColumn(std::string_view column) const
{
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

std::size_t CsvReader::column(std::string_view column) const
{
    const auto found = std::find(columns_.begin(), columns_.end(), column);
    if (found == columns_.end()) {
        throw InputError(fmt::format("{}: has no column '{}'", name_, column));
    }
    return static_cast<std::size_t>(found - columns_.begin());
}

double CsvReader::number(std::size_t column) const
{
    const std::string_view cell = cells_[column];
    double value = 0;
    const char* end = cell.data() + cell.size();
    const auto [stop, error] = std::from_chars(cell.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(static_cast<float>(value))) {
        fail(fmt::format("'{}' in column '{}' is not a number", shown(cell), columns_[column]));
    }
    return value;
}

void CsvReader::fail(const std::string& message) const
{
    throw InputError(fmt::format("{}:{}: {}", name_, lineNumber_, message));
}

} // namespace velk_tools
