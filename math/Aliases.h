// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Matrix4.h"
#include "math/Pose.h"
#include "math/Quat.h"
#include "math/Vector2.h"
#include "math/Vector3.h"

namespace TAL
{

using Vector2f = Vector2<float>;
using Vector3f = Vector3<float>;
using Quatf = Quat<float>;
using Posef = Pose<float>;
using Matrix4f = Matrix4<float>;

} // namespace TAL

namespace velk
{

using TAL::Matrix4f;
using TAL::Posef;
using TAL::Quatf;
using TAL::Vector2f;
using TAL::Vector3f;

} // namespace velk
