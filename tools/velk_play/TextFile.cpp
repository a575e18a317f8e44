// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "TextFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "InputError.h"

namespace velk_play
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

std::ofstream openForWriting(const std::string& path)
{
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    if (!file) {
        fail(path, "written");
    }
    return file;
}

void finishWriting(std::ofstream& file, const std::string& path)
{
    errno = 0;
    file.close();
    if (!file) {
        fail(path, "written");
    }
}

} // namespace velk_play
