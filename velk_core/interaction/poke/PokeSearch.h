// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/poke/PokeCandidate.h"
#include "velk_core/interaction/poke/PokeFrame.h"
#include "velk_core/interaction/poke/PokeInteractor.h"
#include "velk_core/witness/Rules.h"

#include <vector>

namespace velk::interaction
{

/// One search of a finger for what it presses, or else hovers. PokePress.cpp holds the rules by which a press
/// begins, PokeHover.cpp those of a hover, PokeSearch.cpp what both ask.
class PokeSearch
{
public:
    using Interactables = std::vector<PokeInteractable*>;

    /// `lastFound` is the result of the search before, to which wider limits apply, or null.
    PokeSearch(PokeFrame& frame, const PokeInteractor::Config& config, const PokeInteractable* lastFound);

    /// The broad test that comes before all rules: nothing farther than this frame's movement and the enter
    /// limits can matter. A surface first met in this frame always passes.
    bool isInRange(const PokeInteractable& interactable) const;

    /// Of all that the finger's path crosses, the one over which it started lowest.
    PokeCandidate findPressed(const Interactables& inRange);

    /// Whether another surface refuses the press, because `touchPoint` lies closely over it.
    bool isVetoed(const PokeCandidate& pressed, const Vector3f& touchPoint, const Interactables& inRange);

    /// The nearest of all that the finger can hover.
    PokeCandidate findHovered(const Interactables& inRange);

private:
    bool isPressed(PokeInteractable& interactable, PokeCandidate& candidate);
    bool crosses(const PokeInteractable& interactable, const surface::SurfaceHit& backing,
                 const Vector3f& start, surface::SurfaceHit& crossing) const;
    bool vetoes(const PokeInteractable& interactable, const PokeCandidate& pressed,
                const Vector3f& touchPoint);
    bool canHover(PokeInteractable& interactable, PokeCandidate& candidate);
    /// `rule` names what it is asked for.
    bool passesEnterHoverDistanceCheck(witness::Rule rule, const Vector3f& point,
                                       const PokeInteractable& interactable) const;
    float minPokeDepth(const PokeInteractable& interactable) const;
    bool isInFront(const surface::SurfaceHit& backing, const PokeInteractable& interactable) const;
    float hoverNormalLimit(const PokeInteractable& interactable) const;
    float hoverTangentLimit(const PokeInteractable& interactable) const;
    bool areEquallyFar(float distance, float otherDistance) const;

    PokeFrame& frame_;
    const PokeInteractor::Config& config_;
    const PokeInteractable* lastFound_;
};

} // namespace velk::interaction
