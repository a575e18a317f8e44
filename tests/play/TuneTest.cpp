// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "tests/play/PlayProcess.h"

namespace velk::test
{

namespace
{

using namespace testing;
using nlohmann::json;

class Tune : public PlayProcess
{
protected:
    int tune(const std::string& scene, const std::string& recording, const std::string& options) const
    {
        return play("tune " VELK_SCENES_DIR "/" + scene + ".json " VELK_DATA_DIR "/motion/joints24/" +
                    recording + ".csv " + options);
    }
    int tuneTaps(const std::string& options) const { return tune("tap_buttons", "tap_110hz", options); }

    std::vector<json> trials() const
    {
        std::istringstream lines(out());
        std::vector<json> result;
        for (std::string line; std::getline(lines, line);) {
            result.push_back(json::parse(line));
        }
        return result;
    }
};

} // namespace

TEST_F(Tune, CountsWhatWasMeantAndWhatWasNot)
{
    const std::string once = "--json --vary patches.0.config.enterHoverNormal=0.03 --marks ";
    ASSERT_EQ(tuneTaps(once + VELK_DATA_DIR "/marks/tap_110hz.csv"), 0) << err();
    json trial = trials().front();
    EXPECT_EQ(trial["hits"], 8);
    EXPECT_EQ(trial["misses"].get<int>() + trial["wrong"].get<int>() + trial["doubles"].get<int>() +
                  trial["extra"].get<int>(),
              0);
    EXPECT_NEAR(trial["delay"].get<double>(), -0.01, 0.01);

    // One hit, one on another button, one that nobody pressed, the other index tap near a mark, four beside
    // all.
    const std::string marks =
        write("marks.csv", "# comment\r\ntime,kind,name,target\r\n"
                           "0.20,fingertip,index,button 1\r\n"
                           "0.35,fingertip,middle,button 1\n"
                           "0.90,fingertip,,\n1.29,fingertip,index,\n1.29,fingertip,index,\n");
    ASSERT_EQ(tuneTaps(once + marks), 0) << err();
    trial = trials().front();
    EXPECT_EQ(trial["hits"], 2);
    EXPECT_EQ(trial["wrong"], 1);
    EXPECT_EQ(trial["misses"], 2);
    EXPECT_EQ(trial["doubles"], 0);
    EXPECT_EQ(trial["extra"], 5);

    ASSERT_EQ(tuneTaps("--tolerance 2 " + once +
                       write("one.csv", "time,kind,name,target\n0.2,fingertip,index,button 1\n")),
              0);
    trial = trials().front();
    EXPECT_EQ(trial["doubles"], 1);
    EXPECT_EQ(trial["extra"], 6);
}

TEST_F(Tune, FindsTheSettingThatWasMeant)
{
    // With less than no room beside the buttons nothing is ever hovered.
    ASSERT_EQ(tuneTaps("--json --vary 'patches.*.config.enterHoverTangent=-1,0' --marks " VELK_DATA_DIR
                       "/marks/tap_110hz.csv"),
              0)
        << err();
    ASSERT_THAT(trials(), SizeIs(2));
    EXPECT_EQ(trials()[0]["hits"], 0);
    EXPECT_EQ(trials()[0]["misses"], 8);
    EXPECT_TRUE(trials()[1]["best"].get<bool>());
}

TEST_F(Tune, WeighsJitterAgainstLag)
{
    const std::string report = path("tune.html");
    ASSERT_EQ(tune("video_filter", "video_landmarks_30hz",
                   "--json --vary hands.0.filter.JointRotationMinCutoff=0.5,50 "
                   "--vary 'hands.*.filter.JointRotationBeta=0:2:2' --report " +
                       report),
              0)
        << err();
    const std::vector<json> all = trials();
    ASSERT_THAT(all, SizeIs(4));
    EXPECT_EQ(all[1]["settings"]["hands.0.filter.JointRotationMinCutoff"], 0.5);
    EXPECT_EQ(all[1]["settings"]["hands.*.filter.JointRotationBeta"], 2);
    EXPECT_LT(all[0]["jitter"], all[1]["jitter"]); // held still more strictly
    EXPECT_GT(all[0]["lag"], all[1]["lag"]);
    EXPECT_GT(all[2]["jitter"].get<double>(), 0.8 * all[2]["recordedJitter"].get<double>()); // all but off
    EXPECT_LE(all[2]["lag"], 0.01);
    EXPECT_THAT(read(report), AllOf(HasSubstr("JointRotationBeta"), HasSubstr("jitter (degrees)")));
}

TEST_F(Tune, SaysWhatIsWrong)
{
    const auto complaint = [this](const std::string& options) {
        EXPECT_EQ(tuneTaps(options), 2) << options;
        EXPECT_THAT(out(), IsEmpty());
        std::string text = err();
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
        return text;
    };
    EXPECT_THAT(complaint("--vary patches.buton_1.config.enterHoverNormal=1"),
                HasSubstr("did you mean button 1?"));
    EXPECT_THAT(complaint("--vary patchs.0.config.enterHoverNormal=1"), HasSubstr("did you mean patches?"));
    EXPECT_THAT(complaint("--vary patches.0.config.enterHoverNorm=1"),
                HasSubstr("did you mean enterHoverNormal?"));
    EXPECT_THAT(complaint("--vary patches.0.position=1"), HasSubstr("expected a list of 3 numbers"));
    EXPECT_THAT(complaint("--vary title.x=1"), HasSubstr("can't be set there"));
    EXPECT_THAT(complaint("--vary patches"), HasSubstr("expected PATH="));
    EXPECT_THAT(complaint("--vary a=0:1:-1"), HasSubstr("doesn't lead"));
    EXPECT_THAT(complaint("--vary a=0:1:0"), HasSubstr("doesn't lead"));
    EXPECT_THAT(complaint("--vary a=nan"), HasSubstr("is no number"));
    EXPECT_THAT(complaint("--vary a=0:1:0.0001 --vary b=0,1"), HasSubstr("more than 10000 combinations"));
    const std::string vary = "--vary patches.0.config.enterHoverNormal=0 ";
    EXPECT_THAT(complaint(vary + "--marks " + write("a", "time,kind\n")),
                HasSubstr("a:1: expected the columns"));
    EXPECT_THAT(complaint(vary + "--marks " + write("b", "time,kind,name,target\n0,ryy,,\n")),
                HasSubstr("b:2: unknown kind 'ryy'; did you mean ray?"));
    EXPECT_THAT(complaint(vary + "--marks " + write("c", "time,kind,name,target\nx,ray,,\n")),
                HasSubstr("c:2: 'x' is no time"));
    EXPECT_THAT(complaint(vary + "--marks " + write("d", "time,kind,name,target\n")), HasSubstr("no marks"));
}

} // namespace velk::test
