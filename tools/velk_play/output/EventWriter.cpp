// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "output/EventWriter.h"

#include <nlohmann/json.hpp>

#include "TextFile.h"

namespace velk_play
{

EventWriter::EventWriter(const std::string& path)
    : path_(path)
    , file_(openForWriting(path))
{
}

void EventWriter::frame(const Observation&, const std::vector<Transition>& changes)
{
    for (const Transition& change : changes) {
        const nlohmann::ordered_json line = {{"time", change.time},
                                             {"frame", change.frame},
                                             {"kind", change.kind},
                                             {"name", change.name},
                                             {"from", change.from},
                                             {"to", change.to},
                                             {"target", change.target.empty()
                                                            ? nlohmann::ordered_json()
                                                            : nlohmann::ordered_json(change.target)}};
        file_ << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    }
}

void EventWriter::end(const Summary&)
{
    finishWriting(file_, path_);
}

} // namespace velk_play
