// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <filesystem>
#include <fstream>
#include <string>

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

/// The one place in which tools open what they write. A file is written beside its place, and takes it when
/// it is complete; devices and pipes are written directly. Throws InputError when the file can't be opened.
class OutputFile
{
public:
    explicit OutputFile(std::string path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    std::ostream& out() { return file_; }
    /// Ends the writing. Throws InputError when something of it failed, as on a full disk.
    void finish();

private:
    std::string path_;
    std::filesystem::path written_;
    std::filesystem::path place_; ///< Empty for what is written directly.
    std::ofstream file_;
};

} // namespace velk_tools
