// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IActiveState.h"
#include "velk_core/witness/Witness.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace velk::detection
{

/// Active while all wanted keys stand at their wanted levels. Asked once a frame, after the quantizer.
template <typename Axis, typename Alignment>
class Recognizer : public active_state::IActiveState
{
public:
    /// Returns 1, or -2 when a key is missing, which leaves the recognizer inactive. Nothing wanted makes it
    /// active.
    int update(const std::vector<std::pair<Axis, Alignment>>& wanted,
               const std::unordered_map<Axis, Alignment>& values)
    {
        witness::noteUpdate(this);
        active_ = false;
        bool mismatch = false;
        // The loop goes on past a mismatch, so that a missing key further on is still reported.
        for (const auto& [key, level] : wanted) {
            const auto found = values.find(key);
            if (found == values.end()) {
                return -2;
            }
            const bool matches = witness::judge(witness::Rule::DirectionWanted, found->second == level);
            mismatch = mismatch || !matches;
        }
        active_ = !mismatch;
        return 1;
    }

    bool isActive() const override { return active_; }

private:
    bool active_ = false;
};

} // namespace velk::detection
