// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <fstream>
#include <string>

#include "play/Observer.h"

namespace velk_play
{

/// CSV: a row for each frame. Cells of what is not tracked are empty.
class FrameWriter : public Observer
{
public:
    explicit FrameWriter(const std::string& path);

    void begin(const Scene& scene, const Recording& recording) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;
    void end(const Summary& summary) override;

private:
    void writeHeader();

    std::string path_;
    std::ofstream file_;
    Scene scene_;
};

} // namespace velk_play
