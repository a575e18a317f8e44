// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/Geometry.h"
#include "host/recording/Names.h"

namespace velk_tools
{

/// A JSON object that is read key by key. Each complaint is an InputError that names the file and the way to
/// the key; done() complains of keys that nobody asked for.
class JsonObject
{
public:
    using Names = std::span<const std::string_view>;

    JsonObject(std::string file, std::string path, const nlohmann::json& value);

    bool has(std::string_view key) const;

    float number(const std::string& key);
    float number(const std::string& key, float fallback) { return has(key) ? number(key) : fallback; }
    float positive(const std::string& key);
    float positive(const std::string& key, float fallback) { return has(key) ? positive(key) : fallback; }
    bool flag(const std::string& key);
    std::string text(const std::string& key);
    /// N numbers.
    template <std::size_t N>
    std::array<float, N> numbers(const std::string& key);
    Vec3 vector(const std::string& key);
    /// A vector that is not zero.
    Vec3 direction(const std::string& key);
    /// One of a list of names, as its place in the list.
    std::size_t choice(const std::string& key, Names names);
    /// The same for a list; absent means empty.
    std::vector<std::size_t> choices(const std::string& key, Names names);
    JsonObject object(const std::string& key);
    /// A list of objects; absent means empty.
    std::vector<JsonObject> objects(const std::string& key);

    void done() const;
    [[noreturn]] void fail(const std::string& key, const std::string& message) const;

private:
    const nlohmann::json& at(const std::string& key);
    std::string pathTo(const std::string& key) const;
    std::size_t place(const std::string& path, const nlohmann::json& value, Names names) const;
    const nlohmann::json& list(const std::string& key);

    std::string file_;
    std::string path_;
    const nlohmann::json* value_;
    std::set<std::string, std::less<>> used_;
    mutable std::set<std::string, std::less<>> known_; ///< All that somebody asked for, there or not.
};

template <std::size_t N>
std::array<float, N> JsonObject::numbers(const std::string& key)
{
    const nlohmann::json& values = at(key);
    std::array<float, N> result{};
    bool good = values.is_array() && values.size() == N;
    for (std::size_t i = 0; good && i < N; ++i) {
        good = values[i].is_number() && std::isfinite(values[i].get<float>());
        result[i] = good ? values[i].get<float>() : 0;
    }
    if (!good) {
        fail(key, "expected a list of " + std::to_string(N) + " numbers");
    }
    return result;
}

} // namespace velk_tools
