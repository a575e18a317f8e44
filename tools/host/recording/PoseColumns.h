// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/Geometry.h"
#include "host/recording/CsvTable.h"

namespace velk_tools
{

/// Where the seven numbers of a pose stand in a row.
class PoseColumns
{
public:
    PoseColumns(const CsvTable& table, std::string_view prefix);

    bool isEmpty(const CsvTable& table, std::size_t row) const
    {
        return table.text(row, columns_[0]).empty();
    }
    Pose read(const CsvTable& table, std::size_t row) const;

private:
    std::string prefix_;
    std::array<std::size_t, 7> columns_{};
};

} // namespace velk_tools
