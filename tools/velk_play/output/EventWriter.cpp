// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "output/EventWriter.h"

#include <nlohmann/json.hpp>

namespace velk_tools
{

EventWriter::EventWriter(OutputFile& file)
    : file_(file)
{
}

void EventWriter::frame(const Observation&, const std::vector<Transition>& changes)
{
    for (const Transition& change : changes) {
        const nlohmann::ordered_json line = {{"time", change.time},
                                             {"frame", change.frame},
                                             {"kind", nameOf(change.kind)},
                                             {"name", change.name},
                                             {"from", nameOf(change.from)},
                                             {"to", nameOf(change.to)},
                                             {"target", change.target.empty()
                                                            ? nlohmann::ordered_json()
                                                            : nlohmann::ordered_json(change.target)}};
        file_.print("{}\n", line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
    }
}

} // namespace velk_tools
