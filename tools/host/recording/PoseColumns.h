// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "host/Geometry.h"
#include "host/recording/CsvReader.h"

namespace velk_tools
{

/// Where the seven numbers of a pose stand in a row.
class PoseColumns
{
public:
    PoseColumns(const CsvReader& table, std::string_view prefix);

    bool isEmpty(const CsvReader& table) const { return table.text(columns_[0]).empty(); }
    Pose read(const CsvReader& table) const;

private:
    std::string prefix_;
    std::array<std::size_t, 7> columns_{};
};

} // namespace velk_tools
