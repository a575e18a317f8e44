// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include "host/Files.h"
#include "play/Observer.h"

namespace velk_tools
{

/// CSV: a row for each frame. Cells of what is not tracked are empty.
class FrameWriter : public Observer
{
public:
    explicit FrameWriter(OutputFile& file);

    void begin(const Scene& scene, const Recording& recording) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;

private:
    void writeHeader();

    OutputFile& file_;
    Scene scene_;
};

} // namespace velk_tools
