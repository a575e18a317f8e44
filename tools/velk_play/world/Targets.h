// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <optional>
#include <vector>

#include "host/Handle.h"
#include "host/scene/Scene.h"
#include "world/Observation.h"

namespace velk_tools
{

/// The panels and boxes that rays hit.
class RayTargets
{
public:
    explicit RayTargets(const Scene& scene);
    /// The target behind a handle; -1 for a negative handle.
    int indexOf(VelkInteractableHandle handle) const;
    std::vector<VelkInteractableState> view() const;

private:
    std::vector<PointableSurface> surfaces_;
    std::vector<Interactable> interactables_;
};

/// The patches that fingertips press, with their buttons' caps.
class PokeTargets
{
public:
    explicit PokeTargets(const Scene& scene);
    int indexOf(VelkInteractableHandle handle) const;
    std::vector<PatchView> view() const;

private:
    std::vector<SurfacePatch> patches_;
    std::vector<Interactable> interactables_;
    std::vector<std::optional<ButtonVisual>> buttons_;
};

} // namespace velk_tools
