// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Library.h"
#include "Rounds.h"
#include "Scenes.h"

#include <memory>
#include <string>

namespace velk::compare
{

/// A scene that is still there while a contestant is.
using SharedScene = std::shared_ptr<const Scene>;

enum class Kind
{
    Ray,
    Poke
};

/// Whole frames of a library: what moves is moved; each pointer is placed, updated, and its state and
/// interactable read.
Contestant libraryFrames(std::string name, const Library& library, Kind kind, const SharedScene& scene);

/// Which rectangle is hit first, or is nearest to a point. `rebuilds`: the tree of what moved, instead of
/// refitting.
Contestant embreeQueries(std::string name, Kind kind, const SharedScene& scene, bool rebuilds);
/// Boxes without thickness in a collision world, which does all it does for a ray, or for a sphere in touch.
Contestant bulletQueries(Kind kind, const SharedScene& scene);

} // namespace velk::compare
