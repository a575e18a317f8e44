// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/interaction/search/SurfaceIndex.h"

namespace
{

[[maybe_unused]] const bool scansAll = [] {
    velk::interaction::search::SurfaceIndex::setScansAll(true);
    return true;
}();

} // namespace
