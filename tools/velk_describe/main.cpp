// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Prints the description of the C interface that velk_capi/api/velk.json keeps (scripts/describe), or C++
// that compiles only where a compiler lays all out as described.

#include <exception>
#include <string_view>

#include <fmt/format.h>

#include "HeaderReader.h"
#include "host/Files.h"
#include "host/InputError.h"

namespace
{

using nlohmann::ordered_json;

std::string text(const ordered_json& value)
{
    return value.get<std::string>();
}

void printLayout(const ordered_json& description)
{
    fmt::print("#include <velk/velk.h>\n\n#include <cstddef>\n\n#if UINTPTR_MAX > 0xFFFFFFFFu\n");
    for (const ordered_json& handle : description["handles"]) {
        fmt::print("static_assert(sizeof({0}) == 4 && {0}_Invalid == -1);\n", text(handle["name"]));
    }
    for (const ordered_json& enumeration : description["enumerations"]) {
        fmt::print("static_assert(sizeof({}) == 4);\n", text(enumeration["name"]));
        for (const ordered_json& value : enumeration["values"]) {
            fmt::print("static_assert({} == {});\n", text(value["name"]), value["value"].get<int>());
        }
    }
    for (const ordered_json& record : description["records"]) {
        const std::string name = text(record["name"]);
        fmt::print("static_assert(sizeof({0}) == {1} && alignof({0}) == {2});\n", name,
                   record["size"].get<std::size_t>(), record["alignment"].get<std::size_t>());
        for (const ordered_json& field : record["fields"]) {
            fmt::print("static_assert(offsetof({}, {}) == {});\n", name, text(field["name"]),
                       field["offset"].get<std::size_t>());
        }
    }
    fmt::print("#endif\n");
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const bool isLayout = argc == 3 && std::string_view(argv[2]) == "--layout";
        if (argc != 2 && !isLayout) {
            throw velk_tools::InputError("usage: velk-describe HEADER [--layout]");
        }
        const ordered_json description =
            velk_tools::describeHeader(argv[1], velk_tools::readTextFile(argv[1]));
        if (isLayout) {
            printLayout(description);
        } else {
            fmt::print("{}\n", description.dump(1, '\t'));
        }
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "velk-describe: {}\n", error.what());
        return 2;
    }
}
