// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>

#include "host/scene/Scene.h"

namespace velk_tools
{

/// Reads a scene. Throws InputError with file and line, or file and key. name is what messages call the file.
Scene parseScene(const std::string& name, std::string_view text);

Scene loadScene(const std::string& path);

/// Throws InputError when the scene asks for a hand or a device that the recording never has.
void checkScene(const Scene& scene, const Recording& recording);

} // namespace velk_tools
