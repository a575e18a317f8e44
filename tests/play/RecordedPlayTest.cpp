// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <map>
#include <sstream>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "tests/play/PlayProcess.h"

namespace velk::test
{

namespace
{

using namespace testing;

class RecordedPlay : public PlayProcess
{
protected:
    using Events = std::vector<nlohmann::json>;

    Events playScene(const std::string& scene, const std::string& recording,
                     const std::string& options = "") const
    {
        const std::string file = path("events.jsonl");
        EXPECT_EQ(play(std::string(VELK_SCENES_DIR "/") + scene + ".json " VELK_DATA_DIR "/" + recording +
                       ".csv --events " + file + " " + options),
                  0)
            << err();
        std::istringstream lines(read(file));
        Events events;
        for (std::string line; std::getline(lines, line);) {
            events.push_back(nlohmann::json::parse(line));
        }
        return events;
    }

    /// The moments at which someone got into a state ("to") or left it ("from"), by name.
    static std::map<std::string, std::vector<double>> moments(const Events& events, const char* end,
                                                              const char* state)
    {
        std::map<std::string, std::vector<double>> times;
        for (const auto& event : events) {
            if (event[end] == state) {
                times[event["name"]].push_back(event["time"]);
            }
        }
        return times;
    }
};

/// When each fingertip of the drumming recording is below y = 0.190, from the recording's own table.
const std::map<std::string, std::vector<double>> kBelow = {
    {"index", {0.20, 1.32}}, {"middle", {0.35, 1.45}}, {"ring", {0.45, 1.55}}, {"pinky", {0.48, 1.58}}};
/// The skin is 5 mm ahead of the fingertip: so much earlier, at most, does it touch.
constexpr double kSkinAhead = 0.03;

} // namespace

TEST_F(RecordedPlay, EachTapIsOnePressAndOneRelease)
{
    const auto events = playScene("tap_panel", "motion/joints24/tap_110hz");
    const auto presses = moments(events, "to", "Select");
    const auto releases = moments(events, "from", "Select");
    for (const auto& [finger, below] : kBelow) {
        SCOPED_TRACE(finger);
        EXPECT_THAT(presses.at(finger), Pointwise(DoubleNear(kSkinAhead), below));
        EXPECT_THAT(releases.at(finger), Pointwise(Gt(), presses.at(finger)));
    }
}

TEST_F(RecordedPlay, EachFingerPressesItsOwnButtonAndMovesItsCap)
{
    const auto events =
        playScene("tap_buttons", "motion/joints24/tap_110hz", "--frames " + path("frames.csv"));
    std::map<std::string, std::string> pressed;
    for (const auto& event : events) {
        if (event["to"] == "Select") {
            pressed[event["name"]] += event["target"].get<std::string>().back();
        }
    }
    EXPECT_EQ(pressed, (std::map<std::string, std::string>{
                           {"index", "11"}, {"middle", "22"}, {"pinky", "44"}, {"ring", "33"}}));
    const std::string frames = read(path("frames.csv"));
    EXPECT_EQ(std::count(frames.begin(), frames.end(), '\n'), 1 + 243);
}

// The right hand presses when its tracking ends; the left hand's last frame jumps. Nothing may stay pressed
// by either.
TEST_F(RecordedPlay, LostTrackingLetsGo)
{
    const auto events = playScene("two_hands", "motion/joints24/two_hands_49hz");
    EXPECT_THAT(moments(events, "from", "Select").at("right index"), ElementsAre(DoubleNear(2.827, 0.001)));
}

TEST_F(RecordedPlay, PinchesGripsAndTriggersComeWhenTheyWereRecorded)
{
    const auto pinch = playScene("pinch_ray", "motion/joints24/pinch_57hz");
    EXPECT_THAT(moments(pinch, "to", "pinching").at("right index"), ElementsAre(DoubleNear(0.69, 0.01)));
    EXPECT_EQ(moments(pinch, "to", "Select").at("hand"), moments(pinch, "to", "pinching").at("right index"));
    EXPECT_EQ(moments(pinch, "from", "Select").at("hand"),
              moments(pinch, "from", "pinching").at("right index"));

    const auto fist = playScene("fist", "motion/joints24/fist_54hz");
    const auto near = ElementsAre(DoubleNear(0.23, 0.02));
    EXPECT_THAT(moments(fist, "to", "gripping"),
                ElementsAre(Pair("right index", near), Pair("right middle", near), Pair("right pinky", near),
                            Pair("right ring", near)));

    const auto rays = playScene("controllers", "controllers/draw", "--quiet --report " + path("report.html"));
    EXPECT_EQ(moments(rays, "to", "Select").at("left").size(), 8U);
    EXPECT_EQ(moments(rays, "to", "Select").at("right").size(), 10U);
    EXPECT_THAT(read(path("report.html")),
                AllOf(HasSubstr("<svg"), Not(HasSubstr("src=")), Not(HasSubstr("nan"))));
}

TEST_F(RecordedPlay, OneRowMakesASoundPage)
{
    std::istringstream table(read(VELK_DATA_DIR "/motion/joints24/tap_110hz.csv"));
    std::string text;
    int rows = 0;
    for (std::string line; rows < 2 && std::getline(table, line); rows += line.starts_with('#') ? 0 : 1) {
        text += line + "\n";
    }
    const std::string page = path("page.html");
    ASSERT_EQ(play(VELK_SCENES_DIR "/tap_panel.json " + write("one.csv", text) + " --report " + page), 0)
        << err();
    EXPECT_THAT(read(page), AllOf(Not(HasSubstr("nan")), Not(HasSubstr("=\"inf")), Not(HasSubstr("-inf"))));
}

} // namespace velk::test
