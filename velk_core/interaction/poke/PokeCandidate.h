// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/poke/PokeInteractable.h"

#include <limits>

namespace velk::interaction
{

/// A surface that a finger could hover or press, with what it is ranked by.
struct PokeCandidate
{
    PokeInteractable* interactable = nullptr;           ///< null: none found yet
    float distance = std::numeric_limits<float>::max(); ///< height over the surface, in metres
    float tangent = std::numeric_limits<float>::max();  ///< distance along it from the patch, in metres

    bool hasHigherScoreThan(const PokeCandidate& best) const
    {
        return interactable->getTiebreakerScore() > best.interactable->getTiebreakerScore();
    }

    /// Whether this one takes over from the best of those before it. Of two that are about equally far,
    /// within the close distance, the one with the smaller tangent distance counts as nearer.
    bool isNearerThan(const PokeCandidate& best) const
    {
        if (!(distance <= best.distance + interactable->getCloseDistanceThreshold())) {
            return false;
        }
        const bool close = best.interactable != nullptr &&
                           best.distance - best.interactable->getCloseDistanceThreshold() <= distance;
        return !close || tangent < best.tangent;
    }
};

} // namespace velk::interaction
