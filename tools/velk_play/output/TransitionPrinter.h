// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <map>
#include <string>

#include "play/Observer.h"

namespace velk_tools
{

/// One line for each transition on standard output, and a summary at the end.
class TransitionPrinter : public Observer
{
public:
    /// quiet: the summary only.
    explicit TransitionPrinter(bool quiet)
        : quiet_(quiet)
    {
    }

    void begin(const Scene& scene, const Recording& recording) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;
    void end(const Summary& summary) override;

private:
    bool quiet_;
    double duration_ = 0;
    std::map<std::string, std::map<std::string, int>>
        counts_; ///< Of selections and the like: whose, and on what.
};

} // namespace velk_tools
