// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/JsonObject.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "host/InputError.h"
#include "host/scene/Suggestion.h"

namespace velk_tools
{

JsonObject::JsonObject(std::string file, std::string path, const nlohmann::json& value)
    : file_(std::move(file))
    , path_(std::move(path))
    , value_(&value)
{
    if (!value.is_object()) {
        throw InputError(
            fmt::format("{}: {}: expected an object", file_, path_.empty() ? "the file" : path_));
    }
}

bool JsonObject::has(std::string_view key) const
{
    known_.emplace(key);
    return value_->contains(key);
}

float JsonObject::number(const std::string& key)
{
    const nlohmann::json& value = at(key);
    if (!value.is_number() || !std::isfinite(value.get<float>())) {
        fail(key, "expected a number");
    }
    return value.get<float>();
}

float JsonObject::positive(const std::string& key)
{
    const float value = number(key);
    if (!(value > 0)) {
        fail(key, "expected a number above 0");
    }
    return value;
}

bool JsonObject::flag(const std::string& key)
{
    const nlohmann::json& value = at(key);
    if (!value.is_boolean()) {
        fail(key, "expected true or false");
    }
    return value.get<bool>();
}

std::string JsonObject::text(const std::string& key)
{
    const nlohmann::json& value = at(key);
    if (!value.is_string() || value.get_ref<const std::string&>().empty()) {
        fail(key, "expected a text that is not empty");
    }
    std::string text = value.get<std::string>();
    if (printable(text) != text) {
        fail(key, "holds a control character");
    }
    return text;
}

Vec3 JsonObject::vector(const std::string& key)
{
    const std::array<float, 3> n = numbers<3>(key);
    return {n[0], n[1], n[2]};
}

Vec3 JsonObject::direction(const std::string& key)
{
    const Vec3 value = vector(key);
    if (const float size = length(value); !(size > 0) || !std::isfinite(size)) {
        fail(key, "expected a direction that has a length");
    }
    return normalized(value);
}

JsonObject JsonObject::object(const std::string& key)
{
    return {file_, pathTo(key), at(key)};
}

std::vector<JsonObject> JsonObject::objects(const std::string& key)
{
    std::vector<JsonObject> result;
    if (has(key)) {
        for (const auto& [i, value] : list(key).items()) {
            result.emplace_back(file_, fmt::format("{}[{}]", pathTo(key), i), value);
        }
    }
    return result;
}

void JsonObject::done() const
{
    for (const auto& [key, value] : value_->items()) {
        if (!used_.contains(key)) {
            fail(key, "unknown key" + suggestion(key, {known_.begin(), known_.end()}));
        }
    }
}

void JsonObject::fail(const std::string& key, const std::string& message) const
{
    throw InputError(fmt::format("{}: {}: {}", file_, pathTo(key), message));
}

const nlohmann::json& JsonObject::at(const std::string& key)
{
    if (!has(key)) {
        fail(key, "is missing");
    }
    used_.insert(key);
    return (*value_)[key];
}

std::string JsonObject::pathTo(const std::string& key) const
{
    return path_.empty() ? key : path_ + "." + key;
}

std::size_t JsonObject::choice(const std::string& key, Names names)
{
    return place(key, at(key), names);
}

std::vector<std::size_t> JsonObject::choices(const std::string& key, Names names)
{
    std::vector<std::size_t> result;
    if (has(key)) {
        for (const auto& [i, value] : list(key).items()) {
            result.push_back(place(fmt::format("{}[{}]", key, i), value, names));
        }
    }
    return result;
}

std::size_t JsonObject::place(const std::string& path, const nlohmann::json& value, Names names) const
{
    if (value.is_string()) {
        const auto& word = value.get_ref<const std::string&>();
        const auto found = std::find(names.begin(), names.end(), word);
        if (found != names.end()) {
            return static_cast<std::size_t>(found - names.begin());
        }
        if (const std::string meant = suggestion(word, {names.begin(), names.end()}); !meant.empty()) {
            fail(path, fmt::format("'{}' is unknown{}", word, meant));
        }
    }
    fail(path, fmt::format("expected one of '{}'", fmt::join(names, "', '")));
}

const nlohmann::json& JsonObject::list(const std::string& key)
{
    const nlohmann::json& values = at(key);
    if (!values.is_array()) {
        fail(key, "expected a list");
    }
    return values;
}

} // namespace velk_tools
