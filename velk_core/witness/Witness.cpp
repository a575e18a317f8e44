// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "velk_core/witness/Witness.h"

namespace velk::witness::detail
{

void tellOfUpdate(const void* subject)
{
    current->updating(subject);
}

bool tell(Rule rule, bool holds, float value, float limit, const interaction::IInteractable* target,
          int finger)
{
    current->judged({rule, holds, value, limit, target, finger});
    return holds;
}

} // namespace velk::witness::detail
