// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/interaction/surfaces/SurfaceHit.h"

#include <velk/velk.h>

/// The one place where the records of the C interface turn into kernel types and back. The host's space
/// is the library's space: everything here copies, field by field, and nothing flips, scales or
/// normalises. Lengths and extents go through here all the same, so that a call says what its value is.
namespace SpaceConversions
{

TAL::Posef talpToTal(const talpPosef& pose);
TAL::Quatf talpToTal(const talpQuatf& quat);
TAL::Vector3f talpToTal(const talpVector3f& vector);
TAL::Vector2f talpToTal(const talpVector2f& vector);
float talpToTal(const float& length);

/// For an extent, which has no position and no direction.
TAL::Vector3f talpToTal_OnlyScale(const talpVector3f& extent);

talpPosef talToTalp(const TAL::Posef& pose);
talpQuatf talToTalp(const TAL::Quatf& quat);
talpVector3f talToTalp(const TAL::Vector3f& vector);
float talToTalp(const float& length);

/// For a direction, which has no length of its own.
talpVector3f talToTalp_NoScale(const TAL::Vector3f& direction);

velk_SurfaceHit coreToCapi(const velk::interaction::surface::SurfaceHit& hit);

} // namespace SpaceConversions
