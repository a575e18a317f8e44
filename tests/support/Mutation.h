// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// What scripts/mutate puts into a copy of the sources, so that one build holds all changes: the environment's
// VELK_MUTANT says which of them is made. Each form keeps the precedence of the operator that it stands for,
// and what it evaluates:
//
//    a < b      a < at<7> < b                            7: a <= b    8: a > b
//    a + b      a + at<7> + b                            7: a - b
//    a += b     a += at<7> += b                          7: a -= b
//    -a         at<7> ->* a                              7: a
//    a && b     a && andLeft<7>() || andRight<7>() && b  7: a || b
//    a || b     a && orLeft<7>() || orRight<7>() && b    7: a && b
//    0.5f       value<7>(0.5f, 0.6f)                     7: 0.6f
#pragma once

#include <cstdlib>

namespace mutation
{

inline int active()
{
    static const int number = [] {
        const char* text = std::getenv("VELK_MUTANT");
        return text != nullptr ? std::atoi(text) : 0;
    }();
    return number;
}

template <int Id>
struct Place
{
};

template <int Id>
inline constexpr Place<Id> at{};

/// An operand that waits for the other one.
template <int Id, typename T>
struct Operand
{
    T&& value;
};

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are operators
#define MUTATION_OPERATOR(original, first, second)                                                           \
    template <int Id, typename A>                                                                            \
    Operand<Id, A> operator original(A&& a, Place<Id>)                                                       \
    {                                                                                                        \
        return {static_cast<A&&>(a)};                                                                        \
    }                                                                                                        \
    template <int Id, typename A, typename B>                                                                \
    auto operator original(Operand<Id, A> a, B&& b)                                                          \
    {                                                                                                        \
        return active() == Id       ? a.value first b                                                        \
               : active() == Id + 1 ? a.value second b                                                       \
                                    : a.value original b;                                                    \
    }

MUTATION_OPERATOR(<, <=, >)
MUTATION_OPERATOR(<=, <, >)
MUTATION_OPERATOR(>, >=, <)
MUTATION_OPERATOR(>=, >, <)
#undef MUTATION_OPERATOR

#define MUTATION_OPERATOR(original, changed)                                                                 \
    template <int Id, typename A>                                                                            \
    Operand<Id, A> operator original(A&& a, Place<Id>)                                                       \
    {                                                                                                        \
        return {static_cast<A&&>(a)};                                                                        \
    }                                                                                                        \
    template <int Id, typename A, typename B>                                                                \
    auto operator original(Operand<Id, A> a, B&& b)                                                          \
    {                                                                                                        \
        return active() == Id ? a.value changed b : a.value original b;                                      \
    }

MUTATION_OPERATOR(==, !=)
MUTATION_OPERATOR(!=, ==)
MUTATION_OPERATOR(+, -)
MUTATION_OPERATOR(-, +)
#undef MUTATION_OPERATOR

#define MUTATION_OPERATOR(original, changed)                                                                 \
    template <int Id, typename B>                                                                            \
    Operand<Id, B> operator original(Place<Id>, B&& b)                                                       \
    {                                                                                                        \
        return {static_cast<B&&>(b)};                                                                        \
    }                                                                                                        \
    template <int Id, typename A, typename B>                                                                \
    A& operator original(A& a, Operand<Id, B> b)                                                             \
    {                                                                                                        \
        if (active() == Id) {                                                                                \
            a = a changed b.value;                                                                           \
        } else {                                                                                             \
            a original b.value;                                                                              \
        }                                                                                                    \
        return a;                                                                                            \
    }

MUTATION_OPERATOR(+=, -)
MUTATION_OPERATOR(-=, +)
#undef MUTATION_OPERATOR
// NOLINTEND(bugprone-macro-parentheses)

template <int Id, typename A>
auto operator->*(Place<Id>, const A& a)
{
    return active() == Id ? a : -a;
}

template <int Id, typename T>
T value(T original, T changed)
{
    return active() == Id ? changed : original;
}

/// Evaluated when the left side holds: true ends the search, false remembers that it held.
template <int Id>
inline thread_local bool held = false;

template <int Id>
bool isDecidedBy(bool decides)
{
    held<Id> = true;
    return decides;
}

/// Whether the right side is to be asked.
template <int Id>
bool isOpen(bool always)
{
    const bool leftHeld = held<Id>;
    held<Id> = false;
    return always || leftHeld;
}

template <int Id>
bool andLeft()
{
    return isDecidedBy<Id>(active() == Id);
}
template <int Id>
bool andRight()
{
    return isOpen<Id>(active() == Id);
}
template <int Id>
bool orLeft()
{
    return isDecidedBy<Id>(active() != Id);
}
template <int Id>
bool orRight()
{
    return isOpen<Id>(active() != Id);
}

} // namespace mutation
