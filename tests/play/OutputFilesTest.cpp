// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <csignal>

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/play/PlayProcess.h"

namespace velk::test
{

namespace
{

using namespace testing;
namespace fs = std::filesystem;

const std::string kScene = VELK_SCENES_DIR "/tap_panel.json";
const std::string kRecording = VELK_DATA_DIR "/motion/joints24/tap_110hz.csv";

class OutputFiles : public PlayProcess
{
protected:
    int playTap(const std::string& options) const { return play(kScene + " " + kRecording + " " + options); }

    /// The names of all files beside the test's.
    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(path(""))) {
            names.push_back(entry.path().filename());
        }
        return names;
    }
};

} // namespace

TEST_F(OutputFiles, SignalsLeaveNothingUnfinished)
{
    const std::string kept = write("kept", "kept");
    const std::string pipe = path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const int signal : {SIGINT, SIGTERM}) {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(signal, SIG_DFL); // what started the tests may ignore it
            execl(VELK_PLAY, VELK_PLAY, kScene.c_str(), kRecording.c_str(), "--quiet", "--events",
                  kept.c_str(), "--report", path("report").c_str(), "--trace", pipe.c_str(), nullptr);
            _exit(1);
        }
        // The pipe is opened last, and holds less than the trace: the process is waiting for a reader.
        std::ifstream reader(pipe);
        EXPECT_THAT(files(), SizeIs(4));
        kill(child, signal);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        EXPECT_THAT(files(), UnorderedElementsAre("kept", "pipe"));
        EXPECT_EQ(read(kept), "kept");
    }
}

TEST_F(OutputFiles, NoneTakesItsPlaceBeforeAllAreComplete)
{
    const std::string kept = write("kept", "kept");
    EXPECT_EQ(playTap("--events " + kept + " --frames " + path("frames") + " --trace /dev/full"), 2);
    EXPECT_EQ(playTap("--events " + kept + " --frames " + path(std::string(256, 'n'))), 2);
    EXPECT_THAT(err(), HasSubstr("can't be written: File name too long"));
    EXPECT_EQ(read(kept), "kept");
    EXPECT_THAT(files(), UnorderedElementsAre("kept", "out", "err"));
    EXPECT_EQ(playTap("--events " + kept + " --frames " + path(std::string(255, 'n'))), 0);
    EXPECT_THAT(files(), UnorderedElementsAre("kept", std::string(255, 'n'), "out", "err"));
}

TEST_F(OutputFiles, LinksStayAndPipesAreWrittenDirectly)
{
    const std::string file = write("file", "");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("file", path("link"));
    ASSERT_EQ(playTap("--events " + path("link")), 0);
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    const std::string events = read(file);
    EXPECT_THAT(events, StartsWith("{\"time\""));

    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(
        playTap("--events " + path("pipe") + " & cat " + path("pipe") + " > " + path("copy") + "; wait $!"),
        0);
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
    EXPECT_EQ(read(path("copy")), events);

    ASSERT_EQ(playTap("--quiet --events /dev/stdout"), 0); // which play() sends to a file
    EXPECT_THAT(out(), AllOf(HasSubstr(events), HasSubstr("transitions")));
}

TEST_F(OutputFiles, NamesMakeNoFormulasInTables)
{
    std::string text = read(kScene);
    text.replace(text.find("\"panel\""), 7, "\"=1+1\"");
    ASSERT_EQ(play(write("scene.json", text) + " " + kRecording + " --frames " + path("frames")), 0) << err();
    EXPECT_THAT(read(path("frames")), AllOf(HasSubstr(",'=1+1,"), Not(HasSubstr(",=1+1,"))));
}

} // namespace velk::test
