// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace velk::test
{

/// velk-play as a process, in a directory of its own.
class PlayProcess : public testing::Test
{
protected:
    PlayProcess()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        directory_ = testing::TempDir() + "velk_play_" + test->name();
        std::filesystem::remove_all(directory_);
        std::filesystem::create_directories(directory_);
    }

    ~PlayProcess() override { std::filesystem::remove_all(directory_); }

    std::string path(const std::string& name) const { return directory_ + "/" + name; }

    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }

    static std::string read(const std::string& file)
    {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    /// Returns the exit code; what was printed is then in out() and err().
    int play(const std::string& arguments) const
    {
        const std::string command =
            std::string(VELK_PLAY) + " > " + path("out") + " 2> " + path("err") + " " + arguments;
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string out() const { return read(path("out")); }
    std::string err() const { return read(path("err")); }

private:
    std::string directory_;
};

} // namespace velk::test
