// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Library.h"
#include "Rounds.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velk::compare
{

struct Libraries
{
    Library velk;
    Library scan;
    Library empty; ///< The library again, in which no surface is ever made.
    Library small; ///< And again, with fewer surfaces than the first in the same rounds.
    std::unique_ptr<const Library> old;
};

/// A job that is made when its turn comes, as its scene lives in the one process of all.
struct Plan
{
    std::string name;
    std::function<Job()> make;
};

std::vector<Plan> allPlans(const Libraries& libraries, int largest);

/// The longest update of a long run in which surfaces come, move and rest, least of several such runs, and
/// the median.
Result worstUpdate(const Libraries& libraries, int count, int runs);

} // namespace velk::compare
