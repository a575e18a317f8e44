// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include "host/Files.h"
#include "play/Observer.h"

namespace velk_tools
{

/// Text: all that the library lets a host observe in a frame, one thing a line. Floats are the shortest
/// decimals that read back as the same float, so two traces are the same bytes only if all answers are the
/// same bits.
class TraceWriter : public Observer
{
public:
    /// Writes every step-th frame and, but for the long records of hands, those in which something changes.
    TraceWriter(OutputFile& file, std::size_t step);

    void begin(const Scene& scene, const Recording& recording) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;

private:
    void writeRays(const Observation& seen);
    void writePokes(const Observation& seen);
    void writeHand(const HandChain& chain, const HandView& hand);
    void writeGrips(Kind kind, const std::vector<GripTrack>& tracks, const std::vector<GripView>& grips);
    void writeDirections(const Observation& seen);

    std::size_t step_;
    OutputFile& file_;
    Scene scene_;
};

} // namespace velk_tools
