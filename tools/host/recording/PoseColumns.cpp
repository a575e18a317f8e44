// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/recording/PoseColumns.h"

#include <fmt/format.h>

namespace velk_tools
{

namespace
{

constexpr std::array<std::string_view, 7> kPoseParts{"px", "py", "pz", "qx", "qy", "qz", "qw"};
/// A rotation is given to five digits, so its length is off by far less than this.
constexpr float kLengthTolerance = 0.01f;

} // namespace

PoseColumns::PoseColumns(const CsvReader& table, std::string_view prefix)
    : prefix_(prefix)
{
    for (std::size_t i = 0; i < kPoseParts.size(); ++i) {
        columns_[i] = table.column(fmt::format("{}_{}", prefix, kPoseParts[i]));
    }
}

Pose PoseColumns::read(const CsvReader& table) const
{
    std::array<float, 7> n{};
    for (std::size_t i = 0; i < n.size(); ++i) {
        n[i] = static_cast<float>(table.number(columns_[i]));
    }
    const Quat rotation{n[3], n[4], n[5], n[6]};
    if (!(std::abs(length(rotation) - 1) < kLengthTolerance)) {
        table.fail(fmt::format("the rotation in '{}_qx' to '{}_qw' is not of unit length", prefix_, prefix_));
    }
    return {normalized(rotation), {n[0], n[1], n[2]}};
}

} // namespace velk_tools
