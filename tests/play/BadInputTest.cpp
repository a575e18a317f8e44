// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>

#include <gmock/gmock.h>

#include "tests/play/PlayProcess.h"

namespace velk::test
{

namespace
{

const std::string kHands = VELK_DATA_DIR "/motion/joints24/point_110hz.csv";
const std::string kTip = "{'name': 'a', 'hand': 'right', 'joint': 'IndexTip'}";
const std::string kJointRay = "'driver': {'hand': 'right', 'from': 'Root0', 'to': 'IndexTip'}";

struct Case
{
    std::string text;
    std::string complaint; ///< Behind the file's name.
};

class BadInput : public PlayProcess
{
protected:
    /// One line on standard error that begins so, nothing on standard output, and exit code 2.
    void expectComplaint(const std::string& arguments, const std::string& beginning) const
    {
        EXPECT_EQ(play(arguments), 2);
        EXPECT_THAT(err(), testing::StartsWith("velk-play: " + beginning));
        EXPECT_EQ(err().find('\n'), err().size() - 1) << err();
        EXPECT_EQ(out(), "");
    }
};

} // namespace

TEST_F(BadInput, SceneComplaintsNameLineOrKey)
{
    const Case cases[] = {
        {"{\n 'title': oops\n}", ": line 2, column 11: "},
        {"[]", ": the file: expected an object"},
        {"{'title': 'a\\u001b'}", ": title: holds a control character"},
        {"{'title': 'a', 'title': 'b'}", ": the key 'title' stands twice"},
        {"{'pannels': []}", ": pannels: unknown key; did you mean panels?"},
        {"{'rays': [{'name': 'a', 'driver': {'device': 'left', 'key': 1}}]}",
         ": rays[0].driver.key: unknown key"},
        {"{'panels': [{'name': 'p'}]}", ": panels[0].position: is missing"},
        {"{'panels': [{'name': 'p', 'position': [0, 0]}]}",
         ": panels[0].position: expected a list of 3 numbers"},
        {"{'patches': [{'name': 'p', 'position': [0, 0, 0], 'facing': [0, 0, 0]}]}",
         ": patches[0].facing: expected a direction that has a length"},
        {"{'patches': [{'name': 'p', 'position': [0, 0, 0], 'config': {'minThresholdsEnabled': 1}}]}",
         ": patches[0].config.minThresholdsEnabled: expected true or false"},
        {"{'fingertips': [{'name': 'a', 'hand': 'left', 'joint': 'IndexTp'}]}",
         ": fingertips[0].joint: 'IndexTp' is unknown; did you mean IndexTip?"},
        {"{'palms': [{'hand': 'middle'}]}", ": palms[0].hand: expected one of 'left', 'right'"},
        {"{'fingertips': [" + kTip + ", " + kTip + "]}", ": fingertips[1].name: 'a' stands twice"},
        {"{'fingertips': [" + kTip + "], 'hands': [{'hand': 'left', 'limiter': 'a'}]}",
         ": hands[0].limiter: names no fingertip of this hand"},
        {"{'fingertips': [{'name': 'index', 'hand': 'left', 'joint': 'IndexTip'}], "
         "'hands': [{'hand': 'left', 'limiter': 'indx'}]}",
         ": hands[0].limiter: names no fingertip of this hand; did you mean index?"},
        {"{'palms': [{'hand': 'right'}, {'hand': 'right'}]}", ": palms: has one entry for each hand at most"},
        {"{'rays': [{'name': 'a', 'length': 1e99, " + kJointRay + "}]}",
         ": rays[0].length: expected a number"},
        {"{'rays': [{'name': 'a', 'select': {'pinch': 'right', 'finger': 'index'}, " + kJointRay + "}]}",
         ": rays[0].select.pinch: the scene has no pinch for this hand"},
        {"{'rays': [{'name': 'a', 'driver': {'device': 'left'}}]}",
         ": rays[0].driver: the recording 'point_110hz' has no devices"},
        {"{'palms': [{'hand': 'left'}]}", ": palms[0].hand: the recording 'point_110hz' has no left hand"}};
    for (Case bad : cases) {
        std::replace(bad.text.begin(), bad.text.end(), '\'', '"');
        const std::string scene = write("scene.json", bad.text);
        expectComplaint(scene + " " + kHands, scene + bad.complaint);
    }
}

TEST_F(BadInput, RecordingComplaintsNameTheLine)
{
    const std::string scene = write("scene.json", "{}");
    std::string head = "# a comment\ntime";
    for (const std::string device : {"head", "left", "right"}) {
        for (const char* part : {"_px", "_py", "_pz", "_qx", "_qy", "_qz", "_qw"}) {
            head += "," + device + part;
        }
    }
    head += '\n';
    const std::string rest = ",,,,,,,,,,,,,,\n";
    const std::string good = "0,1,2,3,0,0,0,1" + rest;
    const Case cases[] = {
        {"", ":1: has no line of column names"},
        {"time,colour\n0,red\n", ": has neither the columns of hands ('root_px') nor of devices ('head_px')"},
        {"time,hand,root_px\n", ": has no column 'handedness'"},
        {head, ": has no rows"},
        {"\xEF\xBB\xBF" + head, ": has no rows"},
        {head + good + "1,2,3\n", ":4: has 3 cells where the table has 22 columns"},
        {head + "0,1,nan,3,0,0,0,1" + rest, ":3: 'nan' in column 'head_py' is not a number"},
        {head + "0,1,2,3,0,0,0,2" + rest, ":3: the rotation in 'head_qx' to 'head_qw' is not of unit length"},
        {head + "1,1,2,3,0,0,0,1" + rest + good, ":4: the time goes back"},
        {head + good + good, ":4: a second row for this time"}};
    for (const Case& bad : cases) {
        const std::string recording = write("recording.csv", bad.text);
        expectComplaint(scene + " " + recording, recording + bad.complaint);
    }

    const std::string recording = write("recording.csv", head + good);
    const std::string events =
        write("recording_events.csv", "time,device,button,event\n0,tail,trigger,down\n");
    expectComplaint(scene + " " + recording,
                    events + ":2: expected 'head', 'left' or 'right' in column 'device'");
    expectComplaint(scene + " " + path("none.csv"),
                    path("none.csv") + ": can't be read: No such file or directory");
    expectComplaint(scene + " " + kHands + " --report " + path("none/r.html"),
                    path("none/r.html") + ": can't be written: No such file or directory");
}

TEST_F(BadInput, NoOutputIsLostOrOverwritten)
{
    const std::string scene = write("scene.json", "{}");
    const std::string kept = write("kept", "kept");
    const std::string run = scene + " " + kHands;
    expectComplaint(run + " --events " + scene, scene + ": would overwrite");
    expectComplaint(run + " --events " + kept + " --report " + path("./kept"),
                    path("./kept") + ": would over");
    expectComplaint(run + " --events " + kept + " --trace " + path("none/t"), path("none/t") + ": can't be");
    expectComplaint(scene + " " + path(std::string(300, 'n')),
                    path(std::string(300, 'n')) + ": can't be read");
    EXPECT_EQ(read(scene) + read(kept), "{}kept");
    EXPECT_EQ(play(run + " --report /dev/full"), 2);
    EXPECT_THAT(err(), testing::HasSubstr("No space left"));
    EXPECT_EQ(play(run + " --events " + kept + " > /dev/full"), 2);
    EXPECT_EQ(read(kept), "kept");
    EXPECT_EQ(play(run + " --events " + kept), 0);
    EXPECT_EQ(read(kept), "");
}

} // namespace velk::test
