// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <cerrno>
#include <cstdio>
#include <map>
#include <system_error>

#include <fmt/format.h>

#include "output/Outputs.h"

namespace velk_tools
{

namespace
{

/// What a count stands for: the target, or for what has none the state itself.
std::string countedOn(const Transition& change)
{
    if (!change.target.empty()) {
        return change.target;
    }
    return change.to == State::Select ? "nothing" : std::string(nameOf(change.to));
}

class TransitionPrinter : public Observer
{
public:
    TransitionPrinter(const Scene& scene, const Recording& recording, bool quiet)
        : quiet_(quiet)
    {
        fmt::print("{}: {} frames, {:.2f} s, recording {}\n", scene.title.empty() ? scene.file : scene.title,
                   recording.frames.size(), recording.duration(), recording.name);
    }

    void frame(const Observation&, const std::vector<Transition>& changes) override
    {
        for (const Transition& change : changes) {
            if (!quiet_) {
                fmt::print("{:8.3f} s  {:<9} {:<16} {:>10} -> {:<10} {}\n", change.time, nameOf(change.kind),
                           change.name, nameOf(change.from), nameOf(change.to),
                           change.target.empty() ? "-" : change.target);
            }
            if (isStart(change)) {
                ++counts_[fmt::format("{} {}", nameOf(change.kind), change.name)][countedOn(change)];
            }
        }
    }

    void end(const Summary& summary) override
    {
        for (const auto& [who, targets] : counts_) {
            std::string list;
            for (const auto& [target, count] : targets) {
                list += fmt::format("{}{} x{}", list.empty() ? "" : ", ", target, count);
            }
            fmt::print("  {}: {}\n", who, list);
        }
        fmt::print("{} frames, {} transitions, {:.1f} us a frame inside the library (worst {:.1f} us)\n",
                   summary.frames, summary.transitions, summary.meanMicroseconds, summary.worstMicroseconds);
        errno = 0;
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            throw std::system_error(errno, std::generic_category(), "standard output: can't be written");
        }
    }

private:
    bool quiet_;
    /// Of selections and the like: whose, and on what.
    std::map<std::string, std::map<std::string, int>> counts_;
};

} // namespace

std::unique_ptr<Observer> printTransitions(const Scene& scene, const Recording& recording, bool quiet)
{
    return std::make_unique<TransitionPrinter>(scene, recording, quiet);
}

} // namespace velk_tools
