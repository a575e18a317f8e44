// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <nlohmann/json.hpp>

#include "output/Outputs.h"

namespace velk_tools
{

namespace
{

class EventWriter : public Observer
{
public:
    explicit EventWriter(OutputFile& file)
        : file_(file)
    {
    }

    void frame(const Observation&, const std::vector<Transition>& changes) override
    {
        using nlohmann::ordered_json;
        for (const Transition& change : changes) {
            const ordered_json line = {
                {"time", change.time},
                {"frame", change.frame},
                {"kind", nameOf(change.kind)},
                {"name", change.name},
                {"from", nameOf(change.from)},
                {"to", nameOf(change.to)},
                {"target", change.target.empty() ? ordered_json() : ordered_json(change.target)}};
            file_.print("{}\n", line.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
        }
    }

private:
    OutputFile& file_;
};

} // namespace

std::unique_ptr<Observer> writeEvents(OutputFile& file)
{
    return std::make_unique<EventWriter>(file);
}

} // namespace velk_tools
