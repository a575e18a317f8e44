// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace velk::witness
{

/// Everything by which something is hovered, pressed, selected, recognised or refused. Each is named once
/// where it is decided, see judge(); ruleInfo() says what it is about.
enum class Rule : uint8_t
{
    MachineActive,
    MachineHover,
    MachineUnhover,
    MachineSelect,
    MachineUnselect,
    MachineKeepsTarget,
    SelectorPress,
    SelectorRelease,
    Admitted,

    PokeInRange,
    PokeHoverEntry,
    PokeHoverEntryBefore,
    PokeHoverSide,
    PokeHoverHeight,
    PokeHoverReach,
    PokeHoverNearest,
    PokePressEntry,
    PokePressMovement,
    PokePressDirection,
    PokePressCrossing,
    PokePressDepth,
    PokePressReach,
    PokePressNearest,
    PokeVetoEntry,
    PokeVetoScore,
    PokeVetoHeight,
    PokeVetoDistance,
    PokeVetoReach,
    PokeVetoNearer,
    PokeReleaseHeight,
    PokeCancelDepth,
    PokeCancelReach,
    PokeRecoil,
    PokeRecoilReturn,

    RayHit,
    RayNearest,
    RayScore,
    RayMagnet,
    RayMagnetNearest,

    PinchView,
    PinchThumbAway,
    PinchThumbNear,
    PinchSide,
    PinchStart,
    PinchEnd,
    PinchLetGo,

    PalmStart,
    PalmEnd,

    DirectionLevel,
    DirectionWanted,
};

/// How the value is held against the limit. Those that begin with Not hold also for a NaN.
enum class Comparison : uint8_t
{
    None, ///< There are no numbers to compare.
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    NotGreater,
    NotLessOrEqual,
};

/// What follows when the rule holds, or when it does not.
enum class Effect : uint8_t
{
    Requires, ///< Refused unless it holds.
    Refuses,  ///< Refused, or ended, if it holds.
    Ranks,    ///< The one for which it holds goes before the best one so far.
    Moves,    ///< A step of the machine: told only when it is made.
};

struct RuleInfo
{
    Rule rule;
    std::string_view name;
    Effect effect;
    Comparison comparison;
    std::string_view unit;    ///< Of value and limit; empty for plain numbers and for none.
    std::string_view meaning; ///< What it asks, a sentence.
    std::string_view value;   ///< What the value is.
    std::string_view limit;   ///< What the limit is, and which setting moves it.
};

const RuleInfo& ruleInfo(Rule rule);
std::span<const RuleInfo> allRules();

} // namespace velk::witness
