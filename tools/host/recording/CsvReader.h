// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace velk_tools
{

/// Reads a comma separated table as the recordings have it, row by row: lines that start with '#', one line
/// of column names, then rows. Complaints are InputErrors that name the file and the line.
class CsvReader
{
public:
    /// Reads up to the column names. `name` is what complaints call the file.
    CsvReader(std::string name, std::istream& in);

    const std::vector<std::string>& columns() const { return columns_; }
    bool hasColumn(std::string_view column) const;
    /// The column's index. Throws when the table has no such column.
    std::size_t column(std::string_view column) const;

    /// Goes on to the next row, the first one at first. False at the end.
    bool next();
    /// A cell of the present row. Stays valid until the next one.
    std::string_view text(std::size_t column) const { return cells_[column]; }
    /// A number within a float's range. Throws when the cell is empty or holds anything else.
    double number(std::size_t column) const;

    /// Complains of the present row.
    [[noreturn]] void fail(const std::string& message) const;

private:
    /// Splits the next line that is neither empty nor a comment into cells_.
    bool readLine();

    std::string name_;
    std::istream& in_;
    std::size_t lineNumber_ = 0;
    std::string line_;
    std::vector<std::string_view> cells_; ///< Of line_.
    std::vector<std::string> columns_;
};

} // namespace velk_tools
