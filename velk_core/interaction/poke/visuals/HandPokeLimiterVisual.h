// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IUpdate.h"
#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/IDataSource.h"
#include "velk_core/data_sources/hand/SyntheticHand.h"
#include "velk_core/interaction/InteractorState.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/utility/Subscription.h"

#include <memory>

namespace velk::interaction
{

/// Keeps a drawn hand out of what it presses. While the finger is past the surface, the wrist of a synthetic
/// hand is held so that the fingertip's sphere rests on the surface at the touch point; the wrist's rotation
/// follows the tracked hand. Updated each frame, after the interactor. All three partners may go first.
class HandPokeLimiterVisual : public core::IUpdate
{
public:
    /// `hand` is the tracked hand, and may be empty: then nothing is ever locked. The interactor must be
    /// alive.
    HandPokeLimiterVisual(std::weak_ptr<data_source::IDataSource<data::HandData>> hand,
                          std::weak_ptr<PokeInteractor> pokeInteractor,
                          std::weak_ptr<data_source::SyntheticHand> syntheticHand);
    /// Frees a locked wrist, but only while the interactor lives.
    ~HandPokeLimiterVisual() override;

    // The interactor's subscriptions refer to this object.
    HandPokeLimiterVisual(const HandPokeLimiterVisual&) = delete;
    HandPokeLimiterVisual& operator=(const HandPokeLimiterVisual&) = delete;

    void update() override;

private:
    void updateWrist() const;
    void lockWrist();
    void unlockWrist();
    void handlePassedSurfaceChanged(bool passed);
    void handleStateChanged(const InteractorStateChangeArgs& args);

    std::weak_ptr<data_source::IDataSource<data::HandData>> hand_;
    std::weak_ptr<PokeInteractor> pokeInteractor_;
    std::weak_ptr<data_source::SyntheticHand> syntheticHand_;
    bool isWristLocked_ = false;
    utility::Subscription passedSurfaceHandler_;
    utility::Subscription stateChangedHandler_;
};

} // namespace velk::interaction
