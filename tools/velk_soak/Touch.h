// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Actors.h"
#include "Motion.h"

#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace velk_soak
{

inline constexpr float kCapTravel = 0.015f; // metres
inline constexpr talpQuatf kFacingUp{-0.70710678f, 0, 0, 0.70710678f};
/// A panel, and a row of buttons above it under the fingers of the recording that taps.
inline constexpr std::array<talpVector3f, 5> kPatches{{{-0.005f, 0.17f, -0.07f},
                                                       {-0.045f, 0.19f, -0.062f},
                                                       {-0.024f, 0.19f, -0.078f},
                                                       {-0.003f, 0.19f, -0.084f},
                                                       {0.024f, 0.19f, -0.076f}}};

/// Four fingertips of a recorded hand over patches, and the drawn hand that the index finger stops.
class Touch
{
public:
    explicit Touch(const Motion& hand)
        : hand_(hand)
    {
        for (unsigned i = 0; i < kPatches.size(); ++i) {
            Patch patch = makePatch(i);
            Interactable interactable = makeInteractable(patch, i);
            targets_.push_back({std::move(patch), std::move(interactable)});
            caps_.push_back(makeCap(i));
        }
        for (int i = 0; i < 4; ++i) {
            fingers_.push_back({Interactor(velk_PokeInteractor_Create())});
        }
        chain_.emplace_back(velk_DataSource_Create(VelkDataSourceType_External));
        chain_.emplace_back(velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, chain_[0]));
        chain_.emplace_back(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, chain_[1]));
        limiter_.push_back(makeLimiter());
    }

    void frame()
    {
        const Motion::Row& now = hand_.now();
        velk_HandData filtered, shown;
        velk_ExternalHandSource_SetData(chain_[0], &now.hand);
        velk_DataSource_SetAttributeFloat(chain_[1], VelkHandFilterAttribute_UpdateRate, 110);
        velk_DataSource_Update(chain_[2]);
        velk_DataSource_GetData(chain_[1], &filtered);
        velk_DataSource_GetData(chain_[2], &shown);
        for (const talpQuatf& q : filtered.joints) {
            const float square = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
            check(std::fabs(square - 1) < 1e-3f, "filtered rotations are of unit length");
        }
        counts[WristsHeld] += shown.rootPose.position.y > filtered.rootPose.position.y + 0.001f;

        for (unsigned i = 0; i < 4; ++i) {
            velk_PokeInteractor_SetPointTransform(fingers_[i].interactor, &now.tips[i]);
            fingers_[i].update(FingerHovers, FingerPresses);
        }
        velk_HandPokeLimiterVisual_Update(limiter_[0]);
        checkBothSides(fingers_, targets_);
        for (const Cap& cap : caps_) {
            float extent = -1;
            check(velk_PokeButtonVisual_GetCurrentExtent(cap, &extent) == 0 && extent >= 0 &&
                      extent <= kCapTravel,
                  "a cap stays between its base and its rest");
            counts[CapsDown] += extent < kCapTravel;
        }
    }

    void replaceOne()
    {
        const unsigned place = randomBelow(5);
        Target<Patch>& target = targets_[place];
        switch (randomBelow(8)) {
        case 0:
            target.interactable = makeInteractable(target.surface, place);
            break;
        case 1:
            target.surface = makePatch(place);
            velk_PokeInteractable_SetSurface(target.interactable, target.surface);
            break;
        case 2:
            caps_[place] = makeCap(place);
            break;
        case 3: // the limiter does without its finger until it is made anew itself
            fingers_[place % 4] = {Interactor(velk_PokeInteractor_Create())};
            break;
        case 4: // and modifiers without what they wrap
            chain_[0] = Hand(velk_DataSource_Create(VelkDataSourceType_External));
            break;
        case 5:
            chain_[1] = Hand(velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, chain_[0]));
            break;
        case 6:
            chain_[2] = Hand(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, chain_[1]));
            break;
        default:
            limiter_[0] = makeLimiter();
        }
    }

private:
    static Patch makePatch(unsigned place)
    {
        const float size = place == 0 ? 0.16f : 0.04f;
        const std::array<velk_BoundsClipper, 2> clippers{
            {{{0, 0, 0}, {size, 0.05f, 0.02f}}, {{0, 0.01f, 0}, {0.8f * size, 0.06f, 0.02f}}}};
        const talpPosef pose{kFacingUp, kPatches[place]};
        return Patch(velk_ClippedPlaneSurface_Create(&pose, clippers.data(), place == 0 ? 1 : 2));
    }

    static Interactable makeInteractable(const Patch& patch, unsigned place)
    {
        velk_PokeInteractableConfig config;
        velk_PokeInteractable_GetDefaultConfig(&config);
        config.positionPinningEnabled = place % 2 == 0;
        config.maxPinDistance = 0.01f;
        config.minThresholdsEnabled = place == 3;
        return Interactable(velk_PokeInteractable_CreateWithConfig(patch, &config));
    }

    Cap makeCap(unsigned place) const
    {
        const talpPosef base{kFacingUp, kPatches[place]};
        return Cap(velk_PokeButtonVisual_Create(targets_[place].interactable, &base, kCapTravel));
    }

    Limiter makeLimiter() const
    {
        return Limiter(velk_HandPokeLimiterVisual_Create(chain_[0], fingers_[0].interactor, chain_[2]));
    }

    const Motion& hand_;
    std::vector<Target<Patch>> targets_;
    std::vector<Cap> caps_;
    std::vector<Actor> fingers_;
    std::vector<Hand> chain_; // from the inside out
    std::vector<Limiter> limiter_;
};

} // namespace velk_soak
