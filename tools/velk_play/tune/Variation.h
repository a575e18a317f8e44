// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

namespace velk_tools
{

/// A setting of a scene that takes several values: PATH=FROM:TO:STEP, or PATH=VALUE,VALUE,.... A path leads
/// from key to key by dots; in a list it goes on with an entry's name or number, or * for all of them:
/// patches.button 1.config.enterHoverNormal.
struct Variation
{
    std::string path;
    std::vector<double> values;
};

/// Throws InputError for what is no such text.
Variation parseVariation(const std::string& text);

/// A value for each variation.
using Combination = std::vector<double>;

/// All of them, the last variation changing fastest. Throws InputError for more than can be looked through.
std::vector<Combination> combinationsOf(const std::vector<Variation>& variations);

/// Sets a value in a scene, which need not be there yet; the way to it must. Throws InputError.
void setInScene(nlohmann::json& scene, const std::string& path, double value);

} // namespace velk_tools
