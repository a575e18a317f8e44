// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/interaction/surfaces/ISurface.h"

namespace velk::interaction::surface
{

/// A part of a larger surface. Queries of the patch stay within the part.
class ISurfacePatch : public ISurface
{
public:
    /// The whole surface, which lives as long as the patch.
    virtual ISurface& getBackingSurface() const = 0;
};

} // namespace velk::interaction::surface
