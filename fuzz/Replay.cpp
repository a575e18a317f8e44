// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Runs kept inputs through a fuzz target without libFuzzer, each twice, the second time by the plain
// reference of what is made fast, and fails when the two runs differ.
//
//   velk_replay_<name> DIRECTORY...     the files in the directories
//   velk_replay_<name> --explain FILE   prints the input as people can read it
//   velk_replay_<name> --decode FILE    prints the bytes of an input that people can read
#include "fuzz/FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <iterator>

using velk_fuzz::Run;
using velk_fuzz::runInput;

namespace
{

std::string inputOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return velk_fuzz::decodeFile(path.string(), {std::istreambuf_iterator<char>(file), {}});
}

} // namespace

int main(int argc, char** argv)
{
    const std::string option = argc == 3 ? argv[1] : "";
    if (option == "--explain") {
        std::setbuf(stdout, nullptr);
        runInput(inputOf(argv[2]), Run::Echo);
        return 0;
    }
    if (option == "--decode") {
        const std::string input = inputOf(argv[2]);
        return std::fwrite(input.data(), 1, input.size(), stdout) == input.size() ? 0 : 1;
    }
    bool same = true;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            const std::string input = inputOf(entry.path());
            if (runInput(input, Run::Quiet) != runInput(input, Run::Reference)) {
                std::fprintf(stderr, "%s: a second run differs\n", entry.path().string().c_str());
                same = false;
            }
        }
    }
    return same ? 0 : 1;
}
