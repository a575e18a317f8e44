// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <fstream>
#include <string>

#include "play/Observer.h"

namespace velk_play
{

/// JSON Lines: an object for each transition.
class EventWriter : public Observer
{
public:
    explicit EventWriter(const std::string& path);

    void begin(const Scene&, const Recording&) override {}
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;
    void end(const Summary& summary) override;

private:
    std::string path_;
    std::ofstream file_;
};

} // namespace velk_play
