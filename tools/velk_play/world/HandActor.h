// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"

namespace velk_tools
{

/// A recorded hand on its way through the library: external source, one euro filter, synthetic hand with a
/// limiter.
class HandActor
{
public:
    /// rate is the recording's, in hertz; poker the interactor whose press holds the hand, or a negative
    /// handle.
    HandActor(const HandChain& chain, double rate, VelkInteractorHandle poker);

    /// To be called after the interactors' updates, so that a press holds the hand in the frame in which it
    /// begins.
    void update(const Frame& frame);
    const HandView& view() const { return view_; }

private:
    HandChain chain_;
    DataSource source_;
    DataSource filter_;
    DataSource synthetic_;
    std::optional<PokeLimiter> limiter_;
    HandView view_;
};

} // namespace velk_tools
