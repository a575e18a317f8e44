// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include <velk/velk.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

// Handle tables live as long as the process, so nothing else may run in this one.
TEST(FirstHandle, IsZeroInEveryFamilyAndNotIssuedAgain)
{
    const talpPosef pose{{0, 0, 0, 1}, {0, 0, 0}};
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        std::vector<std::function<int()>> destroyAll;
        const auto issued = [&](auto handle, auto destroy, int perRound = 1) {
            EXPECT_EQ(handle / perRound, round);
            destroyAll.push_back([=] { return destroy(handle); });
            return handle;
        };
        const auto tip = issued(velk_PokeInteractor_Create(), velk_Interactor_Destroy);
        const auto patch =
            issued(velk_ClippedPlaneSurface_Create(&pose, nullptr, 0), velk_SurfacePatch_Destroy);
        const auto button = issued(velk_PokeInteractable_Create(patch), velk_Interactable_Destroy);
        issued(velk_PokeButtonVisual_Create(button, &pose, 0.02f), velk_PokeButtonVisual_Destroy);
        issued(velk_PointablePlane_Create(&pose, nullptr), velk_PointableSurface_Destroy);
        issued(velk_Selector_Create(), velk_Selector_Destroy);
        issued(velk_BoxProximityField_Create(&pose, &pose.position), velk_ProximityField_Destroy);
        issued(velk_DirectionQuantizer_Create(nullptr, 30, 60), velk_DirectionQuantizer_Destroy);
        issued(velk_DirectionRecognizer_Create(), velk_DirectionRecognizer_Destroy);
        issued(velk_FingerPinchGrabAPI_Create(), velk_FingerPinchGrabAPI_Destroy);
        issued(velk_FingerPalmGrabAPI_Create(), velk_FingerPalmGrabAPI_Destroy);
        // Sources and modifiers share a table.
        const auto hand =
            issued(velk_DataSource_Create(VelkDataSourceType_External), velk_DataSource_Destroy, 2);
        const auto drawn = issued(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, hand),
                                  velk_DataSource_Destroy, 2);
        issued(velk_HandPokeLimiterVisual_Create(hand, tip, drawn), velk_HandPokeLimiterVisual_Destroy);
        for (const auto& destroy : destroyAll) {
            EXPECT_EQ(destroy(), 0);
        }
    }
}
