// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velk_tools
{

/// A comma separated table as the recordings have it: lines that start with '#', one line of column names,
/// then rows. Complaints are InputErrors that name the file and the line.
class CsvTable
{
public:
    CsvTable(std::string name, std::string_view text);

    std::size_t rowCount() const { return rows_.size(); }
    const std::vector<std::string>& columns() const { return columns_; }
    bool hasColumn(std::string_view column) const;
    /// The column's index. Throws when the table has no such column.
    std::size_t column(std::string_view column) const;

    std::string_view text(std::size_t row, std::size_t column) const { return rows_[row].cells[column]; }
    /// A number within a float's range. Throws when the cell is empty or holds anything else.
    double number(std::size_t row, std::size_t column) const;

    [[noreturn]] void fail(std::size_t row, const std::string& message) const;

private:
    struct Row
    {
        std::size_t line;
        std::vector<std::string> cells;
    };

    [[noreturn]] void failAtLine(std::size_t line, const std::string& message) const;
    void addLine(std::size_t line, std::string_view text);

    std::string name_;
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
    std::size_t lastLine_ = 0;
};

} // namespace velk_tools
