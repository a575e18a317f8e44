// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/witness/Witness.h"

#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velk::detection
{

/// Turns a continuous value into one discrete level per key. Nothing is remembered from one value to the
/// next.
template <typename Value, typename Axis, typename Alignment>
class Quantizer
{
public:
    using Deltas = std::unordered_map<Axis, float>;
    using Levels = std::unordered_map<Axis, Alignment>;
    /// Per key the levels, each with the least number at which it applies. The lists must ascend; nothing
    /// sorts them.
    using Thresholds = std::unordered_map<Axis, std::vector<std::pair<Alignment, float>>>;
    /// Writes one number per key, and returns whether it could.
    using ToDeltas = std::function<bool(const Value&, Deltas&)>;

    Quantizer(Thresholds&& keyThresholds, ToDeltas&& toDeltas)
        : keyThresholds_(std::move(keyThresholds))
        , toDeltas_(std::move(toDeltas))
    {
    }

    /// Points `*result` at the levels, which the next call changes. Returns 1; -1, with `*result` set all the
    /// same, when `quantize` failed; -2 without a function; -3 for a null `result`; -4 when the function
    /// failed.
    int convert(Value value, Levels** result)
    {
        witness::noteUpdate(this);
        if (!toDeltas_) {
            return -2;
        }
        if (result == nullptr) {
            return -3;
        }
        if (!toDeltas_(value, deltas_)) {
            return -4;
        }
        const int code = quantize(deltas_, keyQuantValues_, keyThresholds_);
        *result = &keyQuantValues_;
        return code == 1 ? 1 : -1;
    }

    /// Returns 1; -2 for a key without a list; -3 for an empty list; -4 without deltas. Keys done before a
    /// failure keep their new level.
    static int quantize(const Deltas& deltas, Levels& result, const Thresholds& thresholds)
    {
        if (deltas.empty()) {
            return -4;
        }
        for (const auto& [key, delta] : deltas) {
            const auto found = thresholds.find(key);
            if (found == thresholds.end()) {
                return -2;
            }
            if (found->second.empty()) {
                return -3;
            }
            result[key] = levelOf(delta, found->second);
        }
        return 1;
    }

    const Levels& getKeyQuantValueMap() const { return keyQuantValues_; }

private:
    // The greatest threshold reached wins. A NaN reaches none and gets the first level.
    static Alignment levelOf(float delta, const std::vector<std::pair<Alignment, float>>& list)
    {
        for (auto entry = list.rbegin(); entry != list.rend(); ++entry) {
            if (witness::judge(witness::Rule::DirectionLevel, entry->second <= delta, delta, entry->second)) {
                return entry->first;
            }
        }
        return list.front().first;
    }

    Thresholds keyThresholds_;
    ToDeltas toDeltas_;
    Deltas deltas_;
    Levels keyQuantValues_;
};

} // namespace velk::detection
