// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <memory>

#include "host/Files.h"
#include "play/Observer.h"

/// The kinds of output. Scenes and files must outlive them.
namespace velk_tools
{

/// One line for each transition on standard output, unless quiet, and a summary at the end.
std::unique_ptr<Observer> printTransitions(const Scene& scene, const Recording& recording, bool quiet);

/// JSON Lines: an object for each transition.
std::unique_ptr<Observer> writeEvents(OutputFile& file);

/// CSV: a row for each frame. Cells of what is not tracked are empty.
std::unique_ptr<Observer> writeFrames(OutputFile& file, const Scene& scene);

/// Text: all that the library lets a host observe in a frame, one thing a line. Floats are the shortest
/// decimals that read back as the same float, so two traces are the same bytes only if all answers are the
/// same bits. Of every step-th frame and, but for the long records of hands, those in which something
/// changes.
std::unique_ptr<Observer> writeTrace(OutputFile& file, const Scene& scene, const Recording& recording,
                                     std::size_t step);

/// Keeps the whole run and writes it as one HTML page that needs nothing else.
std::unique_ptr<Observer> writeReport(OutputFile& file, const Scene& scene, const Recording& recording);

} // namespace velk_tools
