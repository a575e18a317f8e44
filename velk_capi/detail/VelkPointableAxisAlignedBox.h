// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdint>

namespace velk::capi::pointable_axis_aligned_box
{

VelkPointableSurfaceHandle create(const talpVector3f* centroid, const talpVector3f* size);
int32_t setBounds(VelkPointableSurfaceHandle box, const talpVector3f* lower, const talpVector3f* upper);
int32_t setCentroidAndSize(VelkPointableSurfaceHandle box, const talpVector3f* centroid,
                           const talpVector3f* size);
int32_t setCentroid(VelkPointableSurfaceHandle box, const talpVector3f* centroid);

} // namespace velk::capi::pointable_axis_aligned_box
