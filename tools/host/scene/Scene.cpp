// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/Scene.h"

namespace velk_tools
{

std::string Scene::rayTarget(int index) const
{
    if (index < 0) {
        return {};
    }
    const auto i = static_cast<std::size_t>(index);
    return i < panels.size() ? panels[i].name : boxes[i - panels.size()].name;
}

std::string Scene::patchName(int index) const
{
    return index < 0 ? std::string() : patches[static_cast<std::size_t>(index)].name;
}

} // namespace velk_tools
