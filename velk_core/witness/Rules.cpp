// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/witness/Rules.h"

#include <array>

namespace velk::witness
{

namespace
{

using enum Rule;
using enum Comparison;
using enum Effect;

constexpr std::array kRules{
    RuleInfo{MachineActive, "MachineActive", Requires, None, "", "Is the interactor active?", "", ""},
    RuleInfo{MachineHover, "MachineHover", Moves, None, "",
             "From Normal to Hover: is there a candidate, or is a select wanted?",
             "the pass of this update, from 0", ""},
    RuleInfo{MachineUnhover, "MachineUnhover", Moves, None, "",
             "From Hover to Normal: is the candidate gone, or another one?",
             "the pass of this update, from 0", ""},
    RuleInfo{MachineSelect, "MachineSelect", Moves, None, "",
             "From Hover to Select: is the hovered one still the candidate, and a select wanted?",
             "the pass of this update, from 0", ""},
    RuleInfo{MachineUnselect, "MachineUnselect", Moves, None, "",
             "From Select to Hover: is the select to end?", "the pass of this update, from 0", ""},
    RuleInfo{MachineKeepsTarget, "MachineKeepsTarget", Requires, None, "",
             "Is what is hovered still the candidate?", "", ""},
    RuleInfo{SelectorPress, "SelectorPress", Requires, None, "",
             "Is a press of the selector the next command?", "", ""},
    RuleInfo{SelectorRelease, "SelectorRelease", Requires, None, "",
             "Is a release of the selector the next command?", "", ""},
    RuleInfo{Admitted, "Admitted", Requires, None, "",
             "Do filters, limits and states of both sides admit the interactable?", "", ""},

    RuleInfo{PokeInRange, "PokeInRange", Requires, LessOrEqual, "m",
             "Is the patch so near that this update's movement and its enter limits could matter?",
             "from the fingertip to the patch",
             "movement + radius + the larger enter limit + 0.001 + its close distance threshold (0)"},
    RuleInfo{
        PokeHoverEntry, "PokeHoverEntry", Requires, Greater, "m",
        "Does a new hover begin from clearly above?", "height of the skin over the surface",
        "0, or with minThresholdsEnabled minNormal (0.01), or the depth of a finger there if that is less"},
    RuleInfo{PokeHoverEntryBefore, "PokeHoverEntryBefore", Requires, Greater, "m",
             "If not, did the finger come from clearly above in this update?",
             "height of the skin over the surface, at the last update's point", "as for PokeHoverEntry"},
    RuleInfo{PokeHoverSide, "PokeHoverSide", Requires, Greater, "m",
             "Is the fingertip in front of the surface?", "height of the fingertip over the surface", "0"},
    RuleInfo{PokeHoverHeight, "PokeHoverHeight", Requires, LessOrEqual, "m", "Is the finger low enough?",
             "height of the skin over the surface",
             "enterHoverNormal (0.03), for the one found last exitHoverNormal (0.05)"},
    RuleInfo{PokeHoverReach, "PokeHoverReach", Requires, LessOrEqual, "m",
             "Is the finger over the patch or near enough to its edge?",
             "distance along the surface from the patch to the skin",
             "enterHoverTangent (0), for the one found last exitHoverTangent (0)"},
    RuleInfo{PokeHoverNearest, "PokeHoverNearest", Ranks, Less, "m", "Is it the nearest so far?",
             "height of the skin over the surface", "that of the best so far"},
    RuleInfo{PokePressEntry, "PokePressEntry", Requires, Greater, "m",
             "Does the finger come from clearly above?",
             "height of the skin over the surface, at the last update's point", "as for PokeHoverEntry"},
    RuleInfo{PokePressMovement, "PokePressMovement", Requires, Greater, "m",
             "Has finger or surface moved since the last update?", "length of the way", "0"},
    RuleInfo{PokePressDirection, "PokePressDirection", Requires, Less, "",
             "Does the finger move towards the surface?", "cosine between its way and the surface's normal",
             "0"},
    RuleInfo{PokePressCrossing, "PokePressCrossing", Ranks, LessOrEqual, "m",
             "Does its way cross the surface? If not, PokePressDepth decides.",
             "from its start to the crossing; not a number without one", "length of the way"},
    RuleInfo{PokePressDepth, "PokePressDepth", Requires, LessOrEqual, "m", "Does the skin touch the surface?",
             "height of the skin over the surface", "0"},
    RuleInfo{PokePressReach, "PokePressReach", Requires, LessOrEqual, "m",
             "Does it cross the patch, or near enough to its edge?",
             "distance along the surface from the patch to the skin, at the crossing",
             "as for PokeHoverReach"},
    RuleInfo{PokePressNearest, "PokePressNearest", Ranks, Less, "m",
             "Did the finger start lower over it than over all others so far?",
             "height of the start over the crossing", "that of the best so far"},
    RuleInfo{PokeVetoEntry, "PokeVetoEntry", Ranks, Greater, "m",
             "May this one refuse the press of another: did the finger come from clearly above it?",
             "height of the skin over the surface, at the last update's point", "as for PokeHoverEntry"},
    RuleInfo{PokeVetoScore, "PokeVetoScore", Ranks, Less, "m",
             "Is it equally far, and of a lower tie-breaker score? Then it refuses nothing.",
             "height of the touch point over the surface", "0.001"},
    RuleInfo{PokeVetoHeight, "PokeVetoHeight", Ranks, Greater, "m", "Does the touch point lie over it?",
             "height of the touch point over the surface", "0"},
    RuleInfo{PokeVetoDistance, "PokeVetoDistance", Ranks, LessOrEqual, "m", "And closely?",
             "height of the touch point over the surface", "its close distance threshold (0)"},
    RuleInfo{PokeVetoReach, "PokeVetoReach", Ranks, LessOrEqual, "m", "And over its patch?",
             "distance along the surface from the patch", "enterHoverTangent (0)"},
    RuleInfo{PokeVetoNearer, "PokeVetoNearer", Refuses, LessOrEqual, "m",
             "And no farther from its patch than from the pressed one's? Then it refuses the press.",
             "distance along the surface from the patch", "that of the pressed one"},
    RuleInfo{PokeReleaseHeight, "PokeReleaseHeight", Refuses, Greater, "m",
             "Has the finger left the surface? Ends a press or a recoil.",
             "height of the skin over the surface", "0.002"},
    RuleInfo{PokeCancelDepth, "PokeCancelDepth", Refuses, Greater, "m",
             "Is it too deep? Cancels a press or a recoil.", "depth of the skin under the surface",
             "cancelSelectNormal (0.3)"},
    RuleInfo{PokeCancelReach, "PokeCancelReach", Refuses, Greater, "m",
             "Is it too far to the side? Cancels a press or a recoil.",
             "distance along the surface from the patch to the skin", "cancelSelectTangent (0.03)"},
    RuleInfo{PokeRecoil, "PokeRecoil", Refuses, Less, "m",
             "Has the finger drawn back far enough to let go without leaving the surface?",
             "depth of the skin under the surface", "the deepest of this press - 0.02"},
    RuleInfo{PokeRecoilReturn, "PokeRecoilReturn", Requires, NotLessOrEqual, "m",
             "Does it go in again far enough to press once more?", "depth of the skin under the surface",
             "the shallowest since the recoil + 0.02"},

    RuleInfo{RayHit, "RayHit", Requires, None, "m", "Does the ray hit the surface from its front?",
             "from the origin to the hit", "the ray's greatest length, as the surface reads it"},
    RuleInfo{RayNearest, "RayNearest", Ranks, Less, "m", "Is the hit nearer than the best so far?",
             "from the origin to the hit", "that of the best so far"},
    RuleInfo{RayScore, "RayScore", Ranks, Greater, "",
             "If they are equally far: has it the higher tie-breaker score?", "its score",
             "that of the best so far"},
    RuleInfo{RayMagnet, "RayMagnet", Requires, None, "",
             "Where the ray hits nothing: does it hit the magnetism surface?", "", ""},
    RuleInfo{RayMagnetNearest, "RayMagnetNearest", Ranks, Less, "m",
             "Is the surface nearer to that hit than all others so far?", "from the hit to the surface",
             "that of the best so far"},

    RuleInfo{PinchView, "PinchView", Ranks, NotGreater, "degrees",
             "Is the hand well seen? Decides which distances hold.",
             "between the directions of wrist and head", "40"},
    RuleInfo{PinchThumbAway, "PinchThumbAway", Requires, Greater, "m",
             "Thumb alone: is its tip off the plane of the index finger?", "from the tip to the plane", "0"},
    RuleInfo{PinchThumbNear, "PinchThumbNear", Requires, Less, "m",
             "Thumb alone: is its tip near the plane of the index finger?", "from the tip to the plane",
             "0.05"},
    RuleInfo{PinchSide, "PinchSide", Requires, None, "",
             "Is the fingertip on the tip side of the thumb's last joint? A pinch that stands may also be "
             "behind it.",
             "", ""},
    RuleInfo{PinchStart, "PinchStart", Requires, Less, "m", "Is the finger near enough to pinch?",
             "from the fingertip to the thumb", "0.02, in good view 0.016, for the thumb 0.03"},
    RuleInfo{PinchEnd, "PinchEnd", Refuses, Greater, "m", "Is it so far that a pinch ends?",
             "from the fingertip to the thumb", "0.1, for the thumb 0.05"},
    RuleInfo{PinchLetGo, "PinchLetGo", Refuses, Greater, "m",
             "Has it gone so far from the nearest of this pinch that it ends?",
             "from the fingertip to the thumb", "the least of this pinch + 0.04, in good view + 0.016"},

    RuleInfo{PalmStart, "PalmStart", Requires, Greater, "", "Is the finger bent enough to grip?",
             "strength, 0 to 1", "0.9"},
    RuleInfo{PalmEnd, "PalmEnd", Refuses, Less, "", "Is it so open that the grip ends?", "strength, 0 to 1",
             "0.6"},

    RuleInfo{DirectionLevel, "DirectionLevel", Ranks, GreaterOrEqual, "degrees",
             "Does the direction reach this level?", "the angle to the reference",
             "the level's least angle; asked from the greatest down"},
    RuleInfo{DirectionWanted, "DirectionWanted", Requires, None, "", "Is the level the wanted one?", "", ""},
};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < kRules.size(); ++i) {
        if (kRules[i].rule != static_cast<Rule>(i)) {
            return false;
        }
    }
    return kRules.back().rule == DirectionWanted;
}
static_assert(isInOrder());

} // namespace

const RuleInfo& ruleInfo(Rule rule)
{
    return kRules[static_cast<std::size_t>(rule)];
}

std::span<const RuleInfo> allRules()
{
    return kRules;
}

} // namespace velk::witness
