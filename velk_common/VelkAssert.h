// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

namespace velk::common
{

/// Hard check of an internal invariant, active in every build: a false condition traps at once and
/// ends the process without a message. Returns the condition otherwise.
bool velkAssert(bool condition);

} // namespace velk::common
