// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include "host/Files.h"
#include "play/Observer.h"

namespace velk_tools
{

/// JSON Lines: an object for each transition.
class EventWriter : public Observer
{
public:
    explicit EventWriter(OutputFile& file);

    void frame(const Observation& seen, const std::vector<Transition>& changes) override;

private:
    OutputFile& file_;
};

} // namespace velk_tools
