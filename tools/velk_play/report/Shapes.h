// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <vector>

#include "host/scene/Scene.h"

namespace velk_tools
{

/// The corners of things, in the recording's space: four of a flat one, eight of a box. A patch
/// without clippers has no end in sight and is drawn as a square.
std::vector<Vec3> cornersOf(const Panel& panel);
std::vector<Vec3> cornersOf(const Box& box);
std::vector<Vec3> cornersOf(const Patch& patch);

/// The class of a fingertip's colour: one for each finger, another on the left hand.
std::string colourOf(const Fingertip& fingertip);

} // namespace velk_tools
