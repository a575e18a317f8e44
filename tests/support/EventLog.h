// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/pointer/PointerEvent.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

namespace velk::test
{

/// Events as text, a letter each, in the order in which they were raised: H hover, h unhover, S select,
/// s unselect, M move, C cancel. Checks the protocol of pointer events while it listens.
class EventLog
{
public:
    /// `place` names pointer and target, and stands before the letter.
    void record(const std::string& place, interaction::PointerEventType type)
    {
        // The letter; the phase in which it may come, and the one after: - away, o over, p pressing, * any
        // but -.
        static const std::string kRules[] = {"H-o", "ho-", "Sop", "spo", "M**", "C**"};
        const std::string& rule = kRules[static_cast<int>(type)];
        text_ += place + rule[0];
        char& phase = phases_.try_emplace(place, '-').first->second;
        EXPECT_TRUE(rule[1] == '*' ? phase != '-' : phase == rule[1]) << "out of order: " << text_;
        phase = rule[2] == '*' ? phase : rule[2];
    }

    /// Any other event; no protocol is known for it.
    void note(const std::string& text) { text_ += text; }

    /// What came since the last call; "-" for nothing.
    std::string take() { return text_.empty() ? "-" : std::exchange(text_, {}); }

private:
    std::map<std::string, char> phases_;
    std::string text_;
};

} // namespace velk::test
