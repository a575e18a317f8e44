// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include "host/Files.h"
#include "play/Observer.h"
#include "report/ReportData.h"

namespace velk_tools
{

/// Keeps the whole run and writes it as one HTML page that needs nothing else.
class ReportWriter : public Observer
{
public:
    explicit ReportWriter(OutputFile& file);

    void begin(const Scene& scene, const Recording& recording) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;
    void end(const Summary& summary) override;

private:
    OutputFile& file_;
    ReportData data_;
};

} // namespace velk_tools
