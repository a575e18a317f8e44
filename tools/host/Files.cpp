// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/Files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include <fmt/format.h>
#include <unistd.h>

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

std::ifstream openToRead(const std::string& path)
{
    std::error_code ignored; // What can't be looked at can't be opened either, which gives the reason.
    if (std::filesystem::is_directory(path, ignored)) {
        throw InputError(path + ": is a directory");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        fail(path, "read");
    }
    return file;
}

std::string readTextFile(const std::string& path)
{
    std::ifstream file = openToRead(path);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    dropByteOrderMark(text);
    return text;
}

void dropByteOrderMark(std::string& text)
{
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.erase(0, 3);
    }
}

bool isSameFile(const std::string& a, const std::string& b)
{
    std::error_code ignored;
    return std::filesystem::equivalent(a, b, ignored) ||
           std::filesystem::weakly_canonical(a, ignored) == std::filesystem::weakly_canonical(b, ignored);
}

bool isDevice(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_other(path, ignored);
}

OutputFile::OutputFile(std::string path)
    : path_(std::move(path))
    , written_(path_)
{
    std::error_code ignored;
    const bool isNew = !std::filesystem::exists(path_, ignored);
    const bool isOld = std::filesystem::is_regular_file(path_, ignored);
    errno = 0;
    if (isOld && !std::ofstream(path_, std::ios::binary | std::ios::app)) {
        fail(path_, "written"); // though another could be put into its place
    }
    if (isNew || isOld) {
        static int count = 0;
        place_ = std::filesystem::weakly_canonical(path_, ignored);
        written_ = place_.parent_path() / fmt::format(".velk-{}-{}.part", getpid(), ++count);
    }
    errno = 0;
    file_.open(written_, std::ios::binary);
    if (!file_) {
        fail(path_, "written");
    }
    if (isOld) {
        std::filesystem::permissions(written_, std::filesystem::status(place_, ignored).permissions(),
                                     ignored);
    }
}

OutputFile::~OutputFile()
{
    if (!place_.empty()) {
        std::error_code ignored;
        std::filesystem::remove(written_, ignored);
    }
}

void OutputFile::finish()
{
    if (file_) {
        errno = 0;
    }
    file_.close();
    if (!file_) {
        fail(path_, "written");
    }
    if (!place_.empty()) {
        std::error_code error;
        std::filesystem::rename(written_, place_, error);
        if (error) {
            throw InputError(path_ + ": can't be written: " + error.message());
        }
    }
}

} // namespace velk_tools
