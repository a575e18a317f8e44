// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/Files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "host/InputError.h"

namespace velk_tools
{

namespace
{

[[noreturn]] void fail(const std::string& path, const char* verb)
{
    const char* reason = errno != 0 ? std::strerror(errno) : "unknown reason";
    throw InputError(path + ": can't be " + verb + ": " + reason);
}

} // namespace

std::string readTextFile(const std::string& path)
{
    if (std::filesystem::is_directory(path)) {
        throw InputError(path + ": is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        fail(path, "read");
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

OutputFile::OutputFile(std::string path)
    : path_(std::move(path))
{
    errno = 0;
    file_.open(path_, std::ios::binary);
    if (!file_) {
        fail(path_, "written");
    }
}

void OutputFile::finish()
{
    errno = 0;
    file_.close();
    if (!file_) {
        fail(path_, "written");
    }
}

} // namespace velk_tools
