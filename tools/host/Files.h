// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace velk_tools
{

/// Throws InputError when the file can't be opened.
std::ifstream openToRead(const std::string& path);
/// The whole of a file, without a byte order mark.
std::string readTextFile(const std::string& path);
/// Takes the mark away with which some programs begin a text in UTF-8.
void dropByteOrderMark(std::string& text);

/// Whether two paths, of files that need not exist, lead to one place.
bool isSameFile(const std::string& a, const std::string& b);
/// A device or a pipe, which is no file to keep.
bool isDevice(const std::string& path);

/// The one place in which tools open what they write. A file is written beside its place and takes it when
/// told to; what stands unfinished goes when the program ends, also on SIGINT and SIGTERM. Devices, pipes and
/// standard output are written directly. Throws InputError when something fails, as on a full disk.
class OutputFile
{
public:
    explicit OutputFile(std::string path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    void write(std::string_view text);
    template <typename... T>
    void print(fmt::format_string<T...> format, T&&... values)
    {
        write(fmt::format(format, std::forward<T>(values)...));
    }
    /// Ends the writing.
    void close();
    /// Lets the closed file take its place.
    void keep();

private:
    void openPart(std::filesystem::file_status old);
    void use(int descriptor);

    std::string path_;
    std::filesystem::path place_;
    std::string part_; ///< What is to take the place. Empty for what is written directly.
    std::FILE* file_ = nullptr;
};

} // namespace velk_tools
