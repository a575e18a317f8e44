// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "output/Outputs.h"
#include "report/Html.h"
#include "report/Sections.h"

namespace velk_tools
{

namespace
{

class ReportWriter : public Observer
{
public:
    ReportWriter(OutputFile& file, const Scene& scene, const Recording& recording)
        : file_(file)
        , data_{scene, recording.name, watchedIn(scene), {}, {}, {}}
    {
    }

    void frame(const Observation& seen, const std::vector<Transition>& changes) override
    {
        data_.frames.push_back(seen);
        data_.changes.insert(data_.changes.end(), changes.begin(), changes.end());
    }

    void end(const Summary& summary) override
    {
        data_.summary = summary;
        file_.write(pageBegin(data_.scene.title.empty() ? data_.recording : data_.scene.title));
        for (const auto section :
             {summarySection, timelineSection, sceneSection, fingertipSection, handSection, trackSection}) {
            file_.write(section(data_));
        }
        file_.write(kPageEnd);
    }

private:
    OutputFile& file_;
    ReportData data_;
};

} // namespace

std::unique_ptr<Observer> writeReport(OutputFile& file, const Scene& scene, const Recording& recording)
{
    return std::make_unique<ReportWriter>(file, scene, recording);
}

} // namespace velk_tools
