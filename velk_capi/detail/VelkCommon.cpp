// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_capi/detail/VelkCommon.h"

#include "velk_capi/detail/Status.h"
#include "velk_common/Version.h"
#include "velk_core/utility/NativeLog.h"

namespace velk::capi::common
{

int32_t getVersion(const char** out)
{
    *out = velk::common::getPackageVersion();
    return kSuccess;
}

void setNativeLogCallback(void (*callback)(const char* message, int color, int length))
{
    utility::NativeLog::registerCallback(callback);
}

} // namespace velk::capi::common
