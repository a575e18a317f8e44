// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <variant>

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"

namespace velk_tools
{

/// Pinches of a hand's fingers, or their grips against its palm.
class GripActor
{
public:
    using Grab = std::variant<PinchGrab, PalmGrab>;

    GripActor(const GripTrack& track, Grab grab);

    const GripTrack& track() const { return track_; }
    /// Each of its own kind alone.
    VelkPinchGrabAPIHandle pinch() const { return std::get<PinchGrab>(grab_); }
    VelkPalmGrabAPIHandle palm() const { return std::get<PalmGrab>(grab_); }
    void update(const Frame& frame);
    const GripView& view() const { return view_; }

private:
    void updatePinch(PinchGrab& grab, const HandSample& hand);
    void updatePalm(PalmGrab& grab, const HandSample& hand);

    GripTrack track_;
    Grab grab_;
    GripView view_;
};

/// A direction of a hand, and whether it is the wanted one.
class DirectionActor
{
public:
    explicit DirectionActor(const DirectionTrack& track);

    void update(const Frame& frame);
    const DirectionView& view() const { return view_; }

private:
    DirectionTrack track_;
    Quantizer quantizer_;
    Recognizer recognizer_;
    DirectionView view_;
};

} // namespace velk_tools
