// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_common/Version.h"

namespace velk::common
{

const char* getPackageVersion()
{
    return "0.52.0";
}

} // namespace velk::common
