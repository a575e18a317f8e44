// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <fstream>
#include <string>

namespace velk_tools
{

/// The whole of a file. Throws InputError when it can't be read.
std::string readTextFile(const std::string& path);

/// The one place in which tools open what they write. Throws InputError when the file can't be opened.
class OutputFile
{
public:
    explicit OutputFile(std::string path);

    std::ostream& out() { return file_; }
    /// Ends the writing. Throws InputError when something of it failed, as on a full disk.
    void finish();

private:
    std::string path_;
    std::ofstream file_;
};

} // namespace velk_tools
