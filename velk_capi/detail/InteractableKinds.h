// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::capi
{

/// Constructs the registries of all kinds of interactable. At exit, function-local statics go in the reverse
/// order of their construction: a table of objects that leave these registries must be constructed after
/// them, whichever exported function a host calls first.
void constructKindRegistriesFirst();

} // namespace velk::capi
