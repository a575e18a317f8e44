// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/PokeScene.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "velk_capi/detail/VelkPokeInteractable.h"
#include "velk_capi/detail/VelkPokeInteractor.h"
#include "velk_capi/detail/VelkSurfacePatch.h"

#include <cstring>

namespace velk::test
{

/// The config of an interactable made through the handles; null for the one made without a record.
PokeInteractable::Config configOf(const velk_PokeInteractableConfig* record)
{
    const auto patch = capi::surface_patch::insert(Button({}).clippedTo({}, {}));
    const auto made = capi::poke_interactable::createWithConfig(patch, record);
    auto config = capi::interactable::getRawPtr<PokeInteractable>(made)->getConfig();
    capi::interactable::destroy(made);
    capi::surface_patch::destroy(patch);
    return config;
}

constexpr velk_PokeInteractableConfig kDefaults = {0.03f, 0.0f, 0.05f, 0.0f,  0.3f,  0.03f, 0,  {},   0.0f,
                                                   1,     {},   0.01f, 0.01f, 0.05f, 0,     {}, 0.01f};

TEST(PokeConfig, TheDefaultRecordIsWhatIsUsedWithoutOne)
{
    velk_PokeInteractableConfig record = {};
    ASSERT_EQ(capi::poke_interactable::getDefaultConfig(&record), 0);
    EXPECT_EQ(std::memcmp(&record, &kDefaults, sizeof record), 0);
    for (const auto& config : {configOf(&record), configOf(nullptr)}) {
        EXPECT_EQ(std::memcmp(&config.enterHoverNormal, &kDefaults, 6 * sizeof(float)), 0);
        EXPECT_TRUE(config.dragThresholds.enabled && !config.minThresholds.enabled);
    }
}

TEST(PokeConfig, LimitsAreNormalisedAndOnlyOneIsTrue)
{
    velk_PokeInteractableConfig record = kDefaults;
    record.enterHoverTangent = 0.04f;
    record.exitHoverNormal = 0.01f;
    record.positionPinningEnabled = 2;
    record.minThresholdsEnabled = 1;
    record.minNormal = 0.05f;
    PokeInteractable::Config config = configOf(&record);
    EXPECT_EQ(config.exitHoverNormal, 0.03f);
    EXPECT_EQ(config.exitHoverTangent, 0.04f);
    EXPECT_EQ(config.cancelSelectTangent, 0.04f);
    EXPECT_EQ(config.minThresholds.minNormal, 0.03f);
    EXPECT_FALSE(config.positionPinning.enabled);
    record.cancelSelectTangent = 0.0f; // stays off
    record.minThresholdsEnabled = 0;   // its height stays as it is
    config = configOf(&record);
    EXPECT_EQ(config.cancelSelectTangent, 0.0f);
    EXPECT_EQ(config.minThresholds.minNormal, 0.05f);
    record.minThresholdsEnabled = 1;
    record.minNormal = 0.0f; // stays 0 also where a finger enters below the surface
    record.enterHoverNormal = -0.01f;
    EXPECT_EQ(configOf(&record).minThresholds.minNormal, 0.0f);
}

// Each of its fields where the behaviour that it decides can be seen.
TEST(PokeConfig, AnInteractorTakesItsOwnRecord)
{
    const velk_PokeInteractorConfig record = {0.25f, 0.0f, 0.125f, 0.5f};
    const auto handle = capi::poke_interactor::create(&record);
    auto& finger = *capi::getRawPointerAs<PokeInteractor>(capi::interactor::getRegistry(), handle);
    EXPECT_EQ(finger.getRadius(), 0.5f);
    EXPECT_EQ(PokeInteractor().getRadius(), 0.005f);
    const auto rise = [&](float height) { // of the skin
        finger.setPointPosition({0.0f, 0.0f, height + 0.5f});
        finger.update();
        return finger.getState();
    };
    rise(1.0f);
    const Button button({});
    rise(1.0f);
    EXPECT_EQ(rise(0.0f), interaction::InteractorState::Select);
    EXPECT_EQ(rise(0.25f), interaction::InteractorState::Select);
    EXPECT_NE(rise(0.26f), interaction::InteractorState::Select);
    capi::interactor::destroy(handle);
}

TEST(PokeConfig, AMissingPatchTraps)
{
    EXPECT_DEATH(PokeInteractable({}, nullptr, nullptr), "");
}

} // namespace velk::test
