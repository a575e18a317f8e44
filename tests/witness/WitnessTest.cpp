// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/witness/Witness.h"

#include "tests/support/PokeScene.h"
#include "tests/support/SearchWorld.h"
#include "velk_core/detection/Quantizer.h"
#include "velk_core/detection/Recognizer.h"
#include "velk_core/interaction/palmgrab/FingerGrabData.h"
#include "velk_core/interaction/pinchgrab/FingerPinchGrabAPI.h"
#include "velk_core/interaction/ray/RayInteractor.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>

namespace velk::test
{
namespace
{

using namespace testing;
using namespace witness;

/// Keeps what it is told, while it lives.
class Keeper : public Witness
{
public:
    Keeper() { setWitness(this); }
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;
    ~Keeper() override { setWitness(nullptr); }

    void updating(const void* inSubject) override { subject = inSubject; }
    void judged(const Judgement& judgement) override { judgements.push_back(judgement); }

    /// The names since the last time, "!" before those that did not hold.
    std::string take()
    {
        std::string text;
        for (const Judgement& judgement : judgements) {
            text.append(text.empty() ? "" : " ").append(judgement.holds ? "" : "!");
            text.append(ruleInfo(judgement.rule).name);
        }
        judgements.clear();
        return text;
    }
    const Judgement& last(Rule rule) const
    {
        const auto found = std::find_if(judgements.rbegin(), judgements.rend(),
                                        [rule](const Judgement& each) { return each.rule == rule; });
        return found != judgements.rend() ? *found : none;
    }

    const void* subject = nullptr;
    std::vector<Judgement> judgements;
    Judgement none;
};

MATCHER_P3(Says, holds, value, limit, "")
{
    return arg.holds == holds && std::fabs(arg.value - static_cast<float>(value)) < 1e-6f &&
           std::fabs(arg.limit - static_cast<float>(limit)) < 1e-6f;
}

constexpr float kNowhere = std::numeric_limits<float>::quiet_NaN();

} // namespace

using WitnessOfPoke = PokeScene;

TEST_F(WitnessOfPoke, IsToldWhatLetsAPressThroughAndWhatRefusesIt)
{
    const PokeInteractable& button = *add().interactable;
    Keeper keeper;
    finger.at(0, 40);
    EXPECT_EQ(keeper.subject, static_cast<const interaction::IInteractor*>(finger.interactor.get()));
    EXPECT_THAT(keeper.last(Rule::PokeHoverHeight), Says(false, 40 * kUnit, 32 * kUnit));
    EXPECT_EQ(keeper.last(Rule::PokeHoverHeight).target, &button);
    EXPECT_THAT(keeper.last(Rule::PokePressDepth), Says(false, 40 * kUnit, 0));
    finger.at(49, 20);
    EXPECT_THAT(keeper.last(Rule::PokeHoverHeight), Says(true, 20 * kUnit, 32 * kUnit));
    EXPECT_THAT(keeper.last(Rule::PokeHoverReach), Says(true, -4 * kUnit, 0));
    EXPECT_TRUE(keeper.last(Rule::MachineHover).holds);

    keeper.take();
    finger.at(49, -10);
    EXPECT_EQ(keeper.take(),
              "PokeInRange Admitted PokePressMovement PokePressDirection PokePressCrossing PokePressReach "
              "PokePressNearest MachineKeepsTarget MachineSelect !PokeReleaseHeight !PokeCancelDepth "
              "!PokeCancelReach");
    finger.at(49, -9);
    EXPECT_THAT(keeper.last(Rule::PokeRecoil), Says(false, 9 * kUnit, (10 - 16) * kUnit));
    finger.at(49, -40);
    finger.at(49, -20);
    EXPECT_THAT(keeper.last(Rule::PokeRecoil), Says(true, 20 * kUnit, (40 - 16) * kUnit));
    finger.at(49, -38);
    EXPECT_THAT(keeper.last(Rule::PokeRecoilReturn), Says(true, 38 * kUnit, 36 * kUnit));
    finger.at(49, 3);
    EXPECT_THAT(keeper.last(Rule::PokeReleaseHeight), Says(true, 3 * kUnit, 2 * kUnit));

    park();
    finger.at(60, 20);
    EXPECT_THAT(keeper.last(Rule::PokeHoverReach), Says(false, 6 * kUnit, 0));
    finger.at(60, -10);
    EXPECT_THAT(keeper.last(Rule::PokePressReach), Says(false, 6 * kUnit, 0));
    finger.at(0, -20); // from behind
    EXPECT_THAT(keeper.last(Rule::PokePressEntry), Says(false, -10 * kUnit, 0));
    park();
    finger.at(0, 500);
    EXPECT_THAT(keeper.last(Rule::PokeInRange),
                Says(false, 504 * kUnit, 37 * kUnit)); // what no search gathers
    keeper.take();
    finger.at(kNowhere, kNowhere);
    EXPECT_EQ(keeper.take(), "!PokeInRange"); // NaN is within no distance
}

TEST_F(WitnessOfPoke, IsToldOfCancelsAndVetoes)
{
    Keeper keeper;
    add();
    finger.at(0, 20);
    finger.at(0, -257);
    EXPECT_THAT(keeper.last(Rule::PokeCancelDepth), Says(true, 257 * kUnit, 256 * kUnit));
    clear();
    add();
    finger.at(0, -1);
    finger.at(90, -1);
    EXPECT_THAT(keeper.last(Rule::PokeCancelReach), Says(true, 36 * kUnit, 32 * kUnit));
    clear();
    addAt("1", 0, 10);
    addAt("2", 0, 6).setCloseDistanceThreshold(4 * kUnit);
    finger.at(0, 500);
    finger.at(0, -10);
    EXPECT_THAT(keeper.last(Rule::PokeVetoDistance), Says(true, 4 * kUnit, 4 * kUnit));
    EXPECT_TRUE(keeper.last(Rule::PokeVetoNearer).holds);
}

TEST(Witness, IsToldOfRaysAndSelectors)
{
    Keeper keeper;
    const auto plane = std::make_shared<PointablePlane>(Posef({}, {0, 0, -2}), Vector2f(1, 1));
    const auto nearer = std::make_shared<PointablePlane>(Posef({}, {0, 0, -1.5f}), Vector2f(0.1f, 0.1f));
    interaction::RayInteractable far(plane, nullptr, nullptr, nullptr, nullptr);
    interaction::RayInteractable near(nearer, nullptr, nullptr, nullptr, nullptr);
    interaction::RayInteractor ray;
    ray.setMaxRayLength(10);
    ray.update();
    EXPECT_EQ(keeper.take(), "Admitted Admitted RayHit RayNearest RayHit RayNearest MachineHover "
                             "MachineKeepsTarget !SelectorPress");
    ray.setRayOrigin({{}, {0.5f, 0, 0}});
    ray.update();
    EXPECT_EQ(keeper.last(Rule::RayNearest).target, &far);
    EXPECT_THAT(keeper.last(Rule::RayNearest), Says(true, 2.0f, std::numeric_limits<float>::max()));
    EXPECT_TRUE(keeper.last(Rule::MachineUnhover).holds);
}

TEST(Witness, IsToldOfGripsAndDirections)
{
    Keeper keeper;
    using namespace interaction::grab;
    data::HandPinchData hand;
    for (std::size_t i = 0; i < hand.jointPositions.size(); ++i) {
        hand.jointPositions[i] = {0.1f * static_cast<float>(i), 0.5f, 0};
    }
    const auto at = [&hand](HandJointId joint) -> Vector3f& {
        return hand.jointPositions[static_cast<std::size_t>(joint)];
    };
    at(HandJointId::ThumbDistal) = {0, 0, 0};
    at(HandJointId::ThumbTip) = {0.03f, 0, 0};
    at(HandJointId::IndexTip) = {0.02f, 0.019f, 0};
    FingerPinchGrabAPI pinch;
    pinch.update(&hand, nullptr, nullptr);
    EXPECT_EQ(keeper.subject, &pinch);
    const auto start =
        std::find_if(keeper.judgements.begin(), keeper.judgements.end(),
                     [](const Judgement& each) { return each.rule == Rule::PinchStart && each.finger == 1; });
    ASSERT_NE(start, keeper.judgements.end());
    EXPECT_THAT(*start, Says(true, 0.019f, 0.02f));
    at(HandJointId::IndexTip).y = 0.06f;
    pinch.update(&hand, nullptr, nullptr);
    EXPECT_THAT(keeper.last(Rule::PinchLetGo), Says(true, 0.06f, 0.059f));

    FingerGrabData finger(HandFinger::Ring);
    finger.grabStrength = 0.95f;
    finger.UpdateIsGrabbing(0.9f, 0.6f);
    EXPECT_THAT(keeper.last(Rule::PalmStart), Says(true, 0.95f, 0.9f));
    EXPECT_EQ(keeper.last(Rule::PalmStart).finger, 3);
    finger.grabStrength = 0.6f;
    finger.UpdateIsGrabbing(0.9f, 0.6f);
    EXPECT_THAT(keeper.last(Rule::PalmEnd), Says(false, 0.6f, 0.6f));

    keeper.take();
    using Levels = detection::Quantizer<float, int, char>;
    Levels::Levels levels;
    Levels::quantize({{1, 50.0f}}, levels, {{1, {{'a', 0.0f}, {'b', 45.0f}, {'c', 90.0f}}}});
    EXPECT_EQ(keeper.take(), "!DirectionLevel DirectionLevel");
    detection::Recognizer<int, char>().update({{1, 'c'}}, levels);
    EXPECT_EQ(keeper.take(), "!DirectionWanted");
}

TEST(Witness, ChangesNoAnswer)
{
    for (uint32_t seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        std::string bytes(4000, '\0');
        std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random() & 0xFF); });
        const auto alone = SearchWorld::play(bytes, false);
        Keeper keeper;
        ASSERT_EQ(SearchWorld::play(bytes, false), alone) << seed;
        EXPECT_GT(keeper.judgements.size(), 100U);
    }
}

// Where the page of rules names a setting and its default, that is the default.
TEST(Witness, TheDefaultsOfTheRulesAreTheSettings)
{
    const PokeInteractable::Config config;
    std::size_t named = 0;
    for (const auto& [name, value] :
         std::map<std::string, float>{{"enterHoverNormal", config.enterHoverNormal},
                                      {"exitHoverNormal", config.exitHoverNormal},
                                      {"enterHoverTangent", config.enterHoverTangent},
                                      {"exitHoverTangent", config.exitHoverTangent},
                                      {"cancelSelectNormal", config.cancelSelectNormal},
                                      {"cancelSelectTangent", config.cancelSelectTangent},
                                      {"minNormal", config.minThresholds.minNormal},
                                      {"- ", config.recoilAssist.exitDistance},
                                      {"the recoil + ", config.recoilAssist.reEnterDistance}}) {
        for (const RuleInfo& info : allRules()) {
            const std::size_t at = info.limit.find(name);
            if (at != std::string_view::npos) {
                const std::string number(info.limit.substr(info.limit.find_first_of("0123456789", at)));
                EXPECT_FLOAT_EQ(std::stof(number), value) << info.name << ": " << name;
                ++named;
            }
        }
    }
    EXPECT_GE(named, 9U);
}

} // namespace velk::test
