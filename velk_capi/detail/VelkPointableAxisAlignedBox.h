// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::pointable_axis_aligned_box
{

/// A null argument means zero.
VelkPointableSurfaceHandle create(const talpVector3f* centroid, const talpVector3f* size);

/// Two bounds are put in order, axis by axis; one alone is set as it comes. Neither is no failure.
int32_t setBounds(VelkPointableSurfaceHandle box, const talpVector3f* lower, const talpVector3f* upper);

/// A null argument leaves that property alone.
int32_t setCentroidAndSize(VelkPointableSurfaceHandle box, const talpVector3f* centroid,
                           const talpVector3f* size);

/// -4 for a null `centroid`.
int32_t setCentroid(VelkPointableSurfaceHandle box, const talpVector3f* centroid);

} // namespace velk::capi::pointable_axis_aligned_box
