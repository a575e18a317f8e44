// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

#include "report/ReportData.h"

/// The parts of the page, each as HTML. A part that the scene has nothing for is empty.
namespace velk_tools
{

/// The scene and the recording in words, the run's figures, and a table of who did what.
std::string summarySection(const ReportData& data);

/// Every interactor's and finger's states as bands over time.
std::string timelineSection(const ReportData& data);

/// The scene from front, side and above, with paths, hits and presses.
std::string sceneSection(const ReportData& data);

/// For each fingertip: height over the surface, the buttons it moves, and where it touches.
std::string fingertipSection(const ReportData& data);

/// Raw against filtered motion, and the drawn hand against the real one.
std::string handSection(const ReportData& data);

/// Scores of pinches and grips, and the angles of directions.
std::string trackSection(const ReportData& data);

} // namespace velk_tools
