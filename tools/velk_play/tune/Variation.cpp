// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tune/Variation.h"

#include <charconv>
#include <cmath>

#include <fmt/format.h>

#include "host/InputError.h"
#include "host/scene/Suggestion.h"

namespace velk_tools
{

namespace
{

constexpr std::size_t kMostCombinations = 10000;

[[noreturn]] void fail(std::string_view text, std::string_view message)
{
    throw InputError(fmt::format("--vary {}: {}", printable(text), message));
}

[[noreturn]] void refuseAsTooMany()
{
    throw InputError(fmt::format("--vary: more than {} combinations", kMostCombinations));
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t end = text.find(separator); end != text.npos; end = text.find(separator)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

double numberIn(std::string_view part, std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
    if (error != std::errc() || end != part.data() + part.size() || !std::isfinite(value)) {
        fail(text, fmt::format("'{}' is no number", printable(part)));
    }
    return value;
}

std::vector<double> stepsOf(double from, double to, double step, std::string_view text)
{
    constexpr double kRounding = 1e-9; // of a step: so that 0:1:0.1 ends with 1
    const double count = (to - from) / step;
    if (!(count >= 0) || !std::isfinite(count)) {
        fail(text, "the step doesn't lead from the first value to the last");
    }
    if (!(count <= static_cast<double>(kMostCombinations))) {
        refuseAsTooMany();
    }
    std::vector<double> values;
    const int last = static_cast<int>(count + kRounding);
    for (int i = 0; i <= last; ++i) {
        values.push_back(from + i * step);
    }
    return values;
}

std::vector<std::string_view> namesIn(const nlohmann::json& list)
{
    std::vector<std::string_view> names;
    for (const nlohmann::json& entry : list) {
        if (const auto name = entry.find("name"); name != entry.end() && name->is_string()) {
            names.push_back(name->get_ref<const std::string&>());
        }
    }
    return names;
}

std::vector<nlohmann::json*> entriesOf(nlohmann::json& list, std::string_view which, std::string_view path)
{
    std::vector<nlohmann::json*> entries;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const bool isNamed = list[i].is_object() && list[i].value("name", nlohmann::json()) == which;
        if (which == "*" || isNamed || which == std::to_string(i)) {
            entries.push_back(&list[i]);
        }
    }
    if (entries.empty()) {
        fail(path, fmt::format("the list has no '{}'{}", printable(which), suggestion(which, namesIn(list))));
    }
    return entries;
}

std::vector<std::string_view> keysOf(const nlohmann::json& object)
{
    std::vector<std::string_view> keys;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        keys.push_back(entry.key());
    }
    return keys;
}

// What a step of the way leads to. Records of settings may be left out in a scene.
std::vector<nlohmann::json*> follow(nlohmann::json& from, std::string_view key, std::string_view path)
{
    if (from.is_array()) {
        return entriesOf(from, key, path);
    }
    const bool isSettings = key == "config" || key == "filter";
    if (!from.is_object() || (!from.contains(key) && !isSettings)) {
        fail(path, fmt::format("the scene has no '{}' there{}", printable(key),
                               from.is_object() ? suggestion(key, keysOf(from)) : ""));
    }
    return {&from[std::string(key)]};
}

} // namespace

Variation parseVariation(const std::string& text)
{
    const std::size_t equals = text.rfind('=');
    if (equals == text.npos || equals == 0) {
        fail(text, "expected PATH=FROM:TO:STEP or PATH=VALUE,VALUE,...");
    }
    Variation variation{text.substr(0, equals), {}};
    const std::string_view values = std::string_view(text).substr(equals + 1);
    if (const auto range = split(values, ':'); range.size() == 3) {
        variation.values =
            stepsOf(numberIn(range[0], text), numberIn(range[1], text), numberIn(range[2], text), text);
        return variation;
    }
    for (const std::string_view value : split(values, ',')) {
        variation.values.push_back(numberIn(value, text));
    }
    return variation;
}

std::vector<Combination> combinationsOf(const std::vector<Variation>& variations)
{
    std::vector<Combination> combinations{{}};
    for (const Variation& variation : variations) {
        if (combinations.size() * variation.values.size() > kMostCombinations) {
            refuseAsTooMany();
        }
        std::vector<Combination> longer;
        for (const Combination& combination : combinations) {
            for (const double value : variation.values) {
                longer.push_back(combination);
                longer.back().push_back(value);
            }
        }
        combinations = std::move(longer);
    }
    return combinations;
}

void setInScene(nlohmann::json& scene, const std::string& path, double value)
{
    std::vector<std::string_view> keys = split(path, '.');
    const std::string last(keys.back());
    keys.pop_back();
    std::vector<nlohmann::json*> places{&scene};
    for (const std::string_view key : keys) {
        std::vector<nlohmann::json*> next;
        for (nlohmann::json* place : places) {
            const auto found = follow(*place, key, path);
            next.insert(next.end(), found.begin(), found.end());
        }
        places = std::move(next);
    }
    for (nlohmann::json* place : places) {
        if (!place->is_object() && !place->is_null()) {
            fail(path, fmt::format("'{}' can't be set there", printable(last)));
        }
        (*place)[last] = value;
    }
}

} // namespace velk_tools
