// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "report/ReportWriter.h"

#include "report/Html.h"
#include "report/Sections.h"

namespace velk_tools
{

ReportWriter::ReportWriter(OutputFile& file)
    : file_(file)
{
}

void ReportWriter::begin(const Scene& scene, const Recording& recording)
{
    data_.scene = scene;
    data_.recording = recording.name;
}

void ReportWriter::frame(const Observation& seen, const std::vector<Transition>& changes)
{
    data_.frames.push_back(seen);
    data_.changes.insert(data_.changes.end(), changes.begin(), changes.end());
}

void ReportWriter::end(const Summary& summary)
{
    data_.summary = summary;
    const std::string body = summarySection(data_) + timelineSection(data_) + sceneSection(data_) +
                             fingertipSection(data_) + handSection(data_) + trackSection(data_);
    file_.write(page(data_.scene.title.empty() ? data_.recording : data_.scene.title, body));
}

} // namespace velk_tools
