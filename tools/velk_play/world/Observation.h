// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <array>
#include <optional>
#include <vector>

#include "host/Geometry.h"

/// What can be seen of the library after a frame. Lists have the scene's order.
namespace velk_tools
{

struct RayView
{
    bool tracked = false;
    VelkInteractorState state = VelkInteractorState_Normal;
    int target = -1;                                                ///< As Scene::rayTarget() counts.
    VelkInteractableHandle handle = VelkInteractableHandle_Invalid; ///< The target's.
    Vec3 origin{};
    Vec3 end{};
};

struct FingertipView
{
    bool tracked = false;
    VelkInteractorState state = VelkInteractorState_Normal;
    int target = -1;                                                ///< As Scene::patchName() counts.
    VelkInteractableHandle handle = VelkInteractableHandle_Invalid; ///< The target's.
    Vec3 tip{};
    std::optional<Vec3> touch; ///< Where the finger touches the surface, while it selects.
};

struct PatchView
{
    VelkInteractableState state = VelkInteractableState_Normal;
    float extent = 0;        ///< The button's height over the surface; 0 without a button.
    std::optional<Pose> cap; ///< The button's.
};

struct HandView
{
    bool tracked = false;
    velk_HandData raw{};      ///< As recorded.
    velk_HandData filtered{}; ///< Behind the one euro filter.
    velk_HandData shown{};    ///< Behind the synthetic hand: what a host would draw.
};

struct GripView
{
    bool tracked = false;
    std::array<float, 5> scores{};
    std::array<bool, 5> holds{};
    std::array<bool, 5> changed{}; ///< By this frame's update, to what holds says.
    Vec3 center{};                 ///< The point to hold at.
};

struct DirectionView
{
    bool tracked = false;
    float angle = 0; ///< Degrees off the reference, as this program measures it.
    int alignment = VelkDirectionAlignment_None;
    bool active = false;
};

struct Observation
{
    std::size_t frame = 0;
    double time = 0;
    double microseconds = 0; ///< Spent inside the library, reading its answers included.
    std::vector<VelkInteractableState> rayTargets; ///< As Scene::rayTarget() counts.
    std::vector<RayView> rays;
    std::vector<FingertipView> fingertips;
    std::vector<PatchView> patches;
    std::vector<HandView> hands;
    std::vector<GripView> pinches;
    std::vector<GripView> palms;
    std::vector<DirectionView> directions;
};

} // namespace velk_tools
