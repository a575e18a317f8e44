// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/poke/PokeInteractable.h"

namespace velk::interaction
{

/// A retreat that releases a press though the finger is still under the surface, and the way back in that
/// presses again. Depths are metres under the surface.
class PokeRecoil
{
public:
    using Assist = PokeInteractable::RecoilAssistConfig;

    /// What the finger has recoiled from; null when it has not.
    PokeInteractable* getInteractable() const { return interactable_; }

    /// Forgets the deepest point. The depth that presses again stays: begin() sets it before it is read.
    void pressBegan() { maxDepth_ = 0.0f; }

    /// In each frame of a press. Remembers the deepest point.
    bool shouldRecoil(float depth, const Assist& assist);

    void begin(PokeInteractable& interactable, float depth);

    /// In each frame of a recoil. The depth to be exceeded rises with the finger and stays when it sinks: it
    /// is reEnterDistance under the shallowest point since the recoil.
    bool pressesAgain(float depth);

    void end() { interactable_ = nullptr; }

private:
    PokeInteractable* interactable_ = nullptr;
    float maxDepth_ = 0.0f;    // deepest point of this press
    float recoilDepth_ = 0.0f; // depth that presses again
};

} // namespace velk::interaction
