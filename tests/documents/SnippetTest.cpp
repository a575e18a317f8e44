// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// A comment before a block of a document says where it is from:
//
//    <!-- from examples/first_host.c -->       lines of that file, which CMake compiles
//    <!-- printed by velk-play tap_buttons --> some of the lines that velk-play prints for a kept scene
//    <!-- printed by velk-play explain SCENE RECORDING --misses --> the same of another command
//
// Indentation and empty lines don't count; "..." stands for lines left out. Each block of C needs such a
// comment.

#include "tests/play/PlayProcess.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include <gmock/gmock.h>

namespace
{

using Lines = std::vector<std::string>;

struct Block
{
    std::string place;
    std::string origin;
    bool isC = false;
    Lines lines;
};

std::string trimmed(const std::string& line)
{
    const auto first = line.find_first_not_of(" \t");
    return first == std::string::npos ? "" : line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

/// Without indentation and empty lines.
Lines linesOf(const std::string& text)
{
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line = trimmed(line); !line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

/// Whether the lines stand there in this order, any number of others between them.
bool containsInOrder(const Lines& all, const Lines& part)
{
    auto from = all.begin();
    for (const std::string& line : part) {
        from = line == "..." ? from : std::find(from, all.end(), line);
        if (from == all.end()) {
            return false;
        }
    }
    return true;
}

/// Whether the lines stand there in this order, next to each other unless "..." is between.
bool contains(const Lines& all, const Lines& part)
{
    auto from = all.begin();
    for (auto begin = part.begin(); begin != part.end();) {
        const auto end = std::find(begin, part.end(), "...");
        from = std::search(from, all.end(), begin, end);
        if (from == all.end() && begin != end) {
            return false;
        }
        from += end - begin;
        begin = end == part.end() ? end : end + 1;
    }
    return true;
}

class Snippets : public velk::test::PlayProcess
{
protected:
    static std::string file(const std::string& name) { return std::string(VELK_ROOT "/") + name; }

    static std::vector<Block> blocksOf(const std::string& document)
    {
        std::vector<Block> blocks;
        std::string previous;
        bool open = false;
        for (const std::string& line : linesOf(read(document))) {
            if (line.starts_with("```")) {
                open = !open;
                if (open) {
                    blocks.push_back({document + ", " + previous, originIn(previous), isC(line), {}});
                }
            } else if (open) {
                blocks.back().lines.push_back(line);
            }
            previous = line;
        }
        return blocks;
    }

    /// Nothing when that is no origin.
    Lines linesFrom(const std::string& origin) const
    {
        const std::string printedBy = "printed by velk-play ";
        if (origin.starts_with("from ")) {
            return linesOf(read(file(origin.substr(5))));
        }
        if (origin.starts_with(printedBy)) {
            return linesOf(printed(origin.substr(printedBy.size())));
        }
        return {};
    }

private:
    static bool isC(const std::string& fence) { return fence == "```c" || fence == "```cpp"; }

    static std::string originIn(const std::string& line)
    {
        const std::string head = "<!-- ";
        const std::string tail = " -->";
        const bool isComment = line.starts_with(head) && line.ends_with(tail);
        return isComment ? line.substr(head.size(), line.size() - head.size() - tail.size()) : "";
    }

    /// Of "SCENE", or of a command with its scene, recording and options: "explain SCENE RECORDING --misses".
    std::string printed(const std::string& command) const
    {
        const std::string scenes = file("tools/velk_play/scenes/");
        std::istringstream words(command);
        std::string verb = "play";
        std::string scene;
        std::string recording;
        std::string options;
        if (command.find(' ') == std::string::npos) {
            words >> scene;
        } else {
            words >> verb >> scene >> recording;
            std::getline(words, options);
        }
        for (const std::string& line : linesOf(read(scenes + "scenes.txt"))) {
            std::istringstream kept(line);
            std::string name;
            std::string itsOwn;
            kept >> name >> itsOwn;
            if (name == scene && recording.empty()) {
                recording = itsOwn;
            }
        }
        play(verb + " " + scenes + scene + ".json " + file("data/") + recording + ".csv" + options);
        return out();
    }
};

TEST_F(Snippets, AreWhatTheExamplesDo)
{
    std::vector<std::string> documents{file("README.md")};
    for (const auto& entry : std::filesystem::directory_iterator(file("docs"))) {
        if (entry.path().extension() == ".md") {
            documents.push_back(entry.path());
        }
    }
    for (const std::string& document : documents) {
        for (const Block& block : blocksOf(document)) {
            SCOPED_TRACE(block.place);
            if (block.isC) {
                EXPECT_NE(block.origin, "") << "a comment is to say where this C is from";
            }
            if (!block.origin.empty()) {
                const Lines lines = linesFrom(block.origin);
                const bool isPrinted = block.origin.starts_with("printed");
                EXPECT_TRUE(isPrinted ? containsInOrder(lines, block.lines) : contains(lines, block.lines))
                    << "no longer " << block.origin;
            }
        }
    }
}

} // namespace
