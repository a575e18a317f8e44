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
    PokeInteractable* interactable = nullptr; ///< null: none found yet
    float distance = std::numeric_limits<float>::max();
    float tangent = std::numeric_limits<float>::max();

    bool hasHigherScoreThan(const PokeCandidate& best) const
    {
        return interactable->getTiebreakerScore() > best.interactable->getTiebreakerScore();
    }

    /// Visited in order, the nearer one takes over. Two within each other's close distance are told apart by
    /// their tangent distance instead.
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
