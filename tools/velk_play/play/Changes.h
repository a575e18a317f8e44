// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <vector>

#include "play/Observer.h"

namespace velk_tools
{

/// What differs between two frames that follow each other. What was never seen before counts as at rest.
std::vector<Transition> findChanges(const Scene& scene, const Observation& before, const Observation& now);

/// How outputs name a finger of a grip track: "right index".
std::string fingerName(const GripTrack& track, std::size_t finger);

} // namespace velk_tools
