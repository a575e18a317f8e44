// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"

namespace velk_tools
{

/// Pinches of a hand's fingers.
class PinchActor
{
public:
    explicit PinchActor(const GripTrack& track);

    const GripTrack& track() const { return track_; }
    void update(const Frame& frame);
    const GripView& view() const { return view_; }

private:
    GripTrack track_;
    PinchGrab grab_;
    GripView view_;
};

/// Grips of a hand's fingers against its palm.
class PalmActor
{
public:
    explicit PalmActor(const GripTrack& track);

    void update(const Frame& frame);
    const GripView& view() const { return view_; }

private:
    GripTrack track_;
    PalmGrab grab_;
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
