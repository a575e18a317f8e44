// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/witness/Rules.h"

#include <limits>

namespace velk::interaction
{
class IInteractable;
}

namespace velk::witness
{

inline constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
inline constexpr int kNoFinger = -1;

/// One answer of a rule.
struct Judgement
{
    Rule rule{};
    bool holds = false;
    float value = kNoNumber;
    float limit = kNoNumber;
    /// What is judged; null where the rule is about the interactor or recognizer alone.
    const interaction::IInteractable* target = nullptr;
    /// Of a hand; see HandFinger.
    int finger = kNoFinger;
};

/// Is told of every answer of every rule, in the order in which they are asked, and changes none. It must not
/// call the library. Host thread only.
class Witness
{
public:
    virtual ~Witness() = default;

    /// An interactor's or recognizer's update begins: what is judged until the next one begins belongs to it.
    /// The address of an interactor is that of its IInteractor.
    virtual void updating(const void* subject) = 0;
    virtual void judged(const Judgement& judgement) = 0;
};

namespace detail
{
inline constinit Witness* current = nullptr;

// Out of the way of the rules.
[[gnu::cold]] void tellOfUpdate(const void* subject);
[[gnu::cold]] bool tell(Rule rule, bool holds, float value, float limit,
                        const interaction::IInteractable* target, int finger);
} // namespace detail

/// Null ends it. The witness must live until then.
inline void setWitness(Witness* witness)
{
    detail::current = witness;
}

/// While there is a witness, searches ask all, so that it is told also of what they would leave out.
inline bool hasWitness()
{
    return detail::current != nullptr;
}

inline void noteUpdate(const void* subject)
{
    if (detail::current != nullptr) [[unlikely]] {
        detail::tellOfUpdate(subject);
    }
}

/// Tells the witness, if there is one, and passes the answer on.
inline bool judge(Rule rule, bool holds, float value = kNoNumber, float limit = kNoNumber,
                  const interaction::IInteractable* target = nullptr, int finger = kNoFinger)
{
    if (detail::current != nullptr) [[unlikely]] {
        return detail::tell(rule, holds, value, limit, target, finger);
    }
    return holds;
}

inline bool judge(Rule rule, bool holds, const interaction::IInteractable& target)
{
    return judge(rule, holds, kNoNumber, kNoNumber, &target);
}

inline bool judge(Rule rule, bool holds, float value, float limit, const interaction::IInteractable& target)
{
    return judge(rule, holds, value, limit, &target);
}

/// Of a finger.
inline bool judgeFinger(Rule rule, bool holds, float value, float limit, int finger)
{
    return judge(rule, holds, value, limit, nullptr, finger);
}

} // namespace velk::witness
