// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/visuals/HandPokeLimiterVisual.h"

#include "velk_common/VelkAssert.h"

#include <utility>

namespace velk::interaction
{

using data_source::SyntheticHand;
using utility::Subscription;

namespace
{

constexpr float kLockedInFull = 1.0f;
constexpr bool kSkipAnimation = true;

} // namespace

HandPokeLimiterVisual::HandPokeLimiterVisual(std::weak_ptr<data_source::IDataSource<data::HandData>> hand,
                                             std::weak_ptr<PokeInteractor> pokeInteractor,
                                             std::weak_ptr<SyntheticHand> syntheticHand)
    : hand_(std::move(hand))
    , pokeInteractor_(std::move(pokeInteractor))
    , syntheticHand_(std::move(syntheticHand))
{
    const auto interactor = pokeInteractor_.lock();
    common::velkAssert(interactor != nullptr);
    stateChangedHandler_ = interactor
                               ->registerWhenStateChangedHandler(
                                   [this](InteractorStateChangeArgs args) { handleStateChanged(args); })
                               .guardedBy(interactor);
    passedSurfaceHandler_ = Subscription::with<&PokeInteractor::unsubscribeToWhenPassedSurfaceChanged>(
        interactor, interactor->subscribeToWhenPassedSurfaceChanged(
                        [this](bool passed) { handlePassedSurfaceChanged(passed); }));
}

HandPokeLimiterVisual::~HandPokeLimiterVisual()
{
    if (isWristLocked_ && !pokeInteractor_.expired()) {
        unlockWrist();
    }
}

void HandPokeLimiterVisual::update()
{
    updateWrist();
}

void HandPokeLimiterVisual::updateWrist() const
{
    if (!isWristLocked_) {
        return;
    }
    const auto hand = hand_.lock();
    const auto interactor = pokeInteractor_.lock();
    const auto syntheticHand = syntheticHand_.lock();
    if (!hand || !interactor || !syntheticHand) {
        return;
    }
    const Posef wristPose = hand->getData().rootPose;
    const Vector3f offset = wristPose.translation - interactor->getOrigin();
    const Vector3f position =
        interactor->getTouchPoint() + offset + interactor->getRadius() * interactor->getTouchNormal();
    syntheticHand->lockWristPose(Posef(wristPose.rotation, position), kLockedInFull,
                                 SyntheticHand::WristLockMode::PositionAndRotation, kSkipAnimation);
}

// The lock is applied by the next update.
void HandPokeLimiterVisual::lockWrist()
{
    isWristLocked_ = true;
}

void HandPokeLimiterVisual::unlockWrist()
{
    if (const auto syntheticHand = syntheticHand_.lock()) {
        syntheticHand->freeWrist(SyntheticHand::WristLockMode::PositionAndRotation);
        isWristLocked_ = false;
    }
}

void HandPokeLimiterVisual::handlePassedSurfaceChanged(bool passed)
{
    if (passed) {
        lockWrist();
    } else {
        unlockWrist();
    }
}

void HandPokeLimiterVisual::handleStateChanged(const InteractorStateChangeArgs&)
{
    handlePassedSurfaceChanged(pokeInteractor_.lock()->isPassedSurface());
}

} // namespace velk::interaction
