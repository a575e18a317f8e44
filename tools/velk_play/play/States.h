// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include <velk/velk.h>

/// What velk-play watches, in which states it can be, and the words that outputs have for both.
namespace velk_tools
{

enum class Kind
{
    Ray,
    Fingertip,
    Pinch,
    Palm,
    Direction
};

/// The first four are the library's, of interactors and interactables alike.
enum class State
{
    Normal,
    Hover,
    Select,
    Disabled,
    Open,
    Pinching,
    Gripping,
    Off,
    Recognised
};

inline std::string_view nameOf(Kind kind)
{
    constexpr std::array<std::string_view, 5> kNames{"ray", "fingertip", "pinch", "palm", "direction"};
    return kNames[static_cast<std::size_t>(kind)];
}

inline std::string_view nameOf(State state)
{
    constexpr std::array<std::string_view, 9> kNames{"Normal",   "Hover",    "Select", "Disabled",  "open",
                                                     "pinching", "gripping", "off",    "recognised"};
    return kNames[static_cast<std::size_t>(state)];
}

inline State stateOf(VelkInteractorState state)
{
    return static_cast<State>(state);
}

inline State stateOf(VelkInteractableState state)
{
    return static_cast<State>(state);
}

/// What a kind is in while it holds: a press, a grip or the wanted direction.
constexpr State heldState(Kind kind)
{
    constexpr std::array<State, 5> kHeld{State::Select, State::Select, State::Pinching, State::Gripping,
                                         State::Recognised};
    return kHeld[static_cast<std::size_t>(kind)];
}

/// What a kind is in while nothing holds it.
constexpr State restState(Kind kind)
{
    constexpr std::array<State, 5> kRest{State::Normal, State::Normal, State::Open, State::Open, State::Off};
    return kRest[static_cast<std::size_t>(kind)];
}

constexpr State stateOf(Kind kind, bool holds)
{
    return holds ? heldState(kind) : restState(kind);
}

} // namespace velk_tools
