// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

namespace velk::common
{

/// Version of the package, "major.minor.patch"; a constant string.
const char* getPackageVersion();

} // namespace velk::common
