// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/poke/PokeRecoil.h"

#include "velk_core/witness/Witness.h"

#include <algorithm>
#include <utility>

namespace velk::interaction
{

using witness::judge;
using witness::Rule;

bool PokeRecoil::shouldRecoil(float depth, const Assist& assist)
{
    if (!assist.enabled) {
        return false;
    }
    if (depth > maxDepth_) {
        maxDepth_ = depth;
        return false;
    }
    const float limit = maxDepth_ - assist.exitDistance;
    return judge(Rule::PokeRecoil, depth < limit, depth, limit);
}

void PokeRecoil::begin(PokeInteractable& interactable, float depth)
{
    interactable_ = &interactable;
    maxDepth_ = 0.0f;
    recoilDepth_ = depth + std::as_const(interactable).getConfig().recoilAssist.reEnterDistance;
}

bool PokeRecoil::pressesAgain(float depth)
{
    recoilDepth_ = std::min(recoilDepth_,
                            depth + std::as_const(*interactable_).getConfig().recoilAssist.reEnterDistance);
    return judge(Rule::PokeRecoilReturn, !(depth <= recoilDepth_), depth, recoilDepth_, *interactable_);
}

} // namespace velk::interaction
