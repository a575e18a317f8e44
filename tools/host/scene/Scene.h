// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/Geometry.h"
#include "host/recording/Recording.h"

/// What a scene file says, as plain values. docs/velk-play.md tells what each means in the file.
namespace velk_tools
{

/// A flat target of rays. Its front is local +Z.
struct Panel
{
    std::string name;
    Pose pose{};
    talpVector2f halfSize{};
};

/// A target of rays that stays aligned with the axes.
struct Box
{
    std::string name;
    Vec3 center{};
    Vec3 size{}; ///< Full widths.
};

/// The moving cap of a button.
struct Button
{
    float travel = 0; ///< Metres from rest to fully pressed.
};

/// A surface that fingertips press. Its front is local +Z.
struct Patch
{
    std::string name;
    Pose pose{};
    std::vector<velk_BoundsClipper> clippers; ///< In the patch's own frame.
    velk_PokeInteractableConfig config{};
    std::optional<Button> button;
};

/// A direction of a hand: from one joint to another.
struct JointPair
{
    Side side{};
    std::size_t from = 0;
    std::size_t to = 0;
};

/// Selects while this device's trigger is down.
struct TriggerSelect
{
    Device device{};
};

/// Selects while this finger pinches.
struct PinchSelect
{
    Side side{};
    std::size_t finger = 0;
};

struct Ray
{
    std::string name;
    std::variant<Device, JointPair> driver;
    std::variant<std::monostate, TriggerSelect, PinchSelect> select;
    float length = 0; ///< Metres.
};

struct Fingertip
{
    std::string name;
    Side side{};
    std::size_t joint = 0;
};

/// A hand's road through the library: external source, one euro filter, synthetic hand with a limiter.
struct HandChain
{
    Side side{};
    std::vector<std::pair<int, float>> filter; ///< Attribute id and value, in the file's order.
    std::vector<std::size_t> joints;           ///< Those that the report draws.
    std::optional<std::size_t> limiter;        ///< Index of the fingertip that holds the hand.
};

/// Per finger scores of one hand: pinch against the thumb, or grip of the palm.
struct GripTrack
{
    Side side{};
    std::vector<std::size_t> fingers; ///< Those that are shown.
    bool goodView = true;             ///< Pinch only: whether the hand is taken to be well seen.
};

/// A direction that is compared with a reference.
struct DirectionTrack
{
    std::string name;
    JointPair pair;
    Vec3 reference{};      ///< In the recording's space.
    float middleAngle = 0; ///< Degrees.
    float farAngle = 0;    ///< Degrees.
    int32_t wanted = 0;    ///< The alignment that makes it active.
};

struct Scene
{
    std::string file;
    std::string title;
    std::vector<Panel> panels;
    std::vector<Box> boxes;
    std::vector<Patch> patches;
    std::vector<Ray> rays;
    std::vector<Fingertip> fingertips;
    std::vector<HandChain> hands;
    std::vector<GripTrack> pinches;
    std::vector<GripTrack> palms;
    std::vector<DirectionTrack> directions;

    /// The name of a ray's target: the panels are counted first, then the boxes. Empty for -1.
    std::string rayTarget(int index) const;
    /// The name of a patch. Empty for -1.
    std::string patchName(int index) const;
};

} // namespace velk_tools
