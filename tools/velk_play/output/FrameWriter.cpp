// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <algorithm>

#include <fmt/format.h>

#include "output/Outputs.h"
#include "play/Changes.h"

namespace velk_tools
{

namespace
{

/// One row that grows cell by cell.
class Row
{
public:
    void add(std::string_view text)
    {
        std::string cell(text);
        const bool quoted = cell.find_first_of(",\"\n\r") != std::string::npos;
        std::replace(cell.begin(), cell.end(), '"', '\'');
        line_ +=
            fmt::format("{}{}{}{}", line_.empty() ? "" : ",", quoted ? "\"" : "", cell, quoted ? "\"" : "");
    }

    /// A name that a spreadsheet would take for a formula is marked as text.
    void addName(const std::string& name)
    {
        const bool isFormula = !name.empty() && std::string_view("=+-@").find(name[0]) != std::string::npos;
        add(isFormula ? "'" + name : name);
    }

    void add(float value) { add(fmt::format("{}", value)); }

    /// Three cells, left empty unless known.
    void add(Vec3 v, bool known)
    {
        for (const float value : {v.x, v.y, v.z}) {
            add(known ? fmt::format("{}", value) : std::string());
        }
    }

    void names(const std::string& prefix, std::initializer_list<const char*> parts)
    {
        for (const char* part : parts) {
            add(prefix + "." + part);
        }
    }

    const std::string& line() const { return line_; }

private:
    std::string line_;
};

void addGripNames(Row& row, Kind kind, const std::vector<GripTrack>& tracks)
{
    for (const GripTrack& track : tracks) {
        for (const std::size_t finger : track.fingers) {
            row.names(fmt::format("{} {}", nameOf(kind), fingerName(track, finger)), {"score", "holds"});
        }
    }
}

void addGrips(Row& row, const std::vector<GripTrack>& tracks, const std::vector<GripView>& views)
{
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        for (const std::size_t finger : tracks[i].fingers) {
            row.add(views[i].tracked ? fmt::format("{}", views[i].scores[finger]) : std::string());
            row.add(views[i].holds[finger] ? "1" : "0");
        }
    }
}

class FrameWriter : public Observer
{
public:
    FrameWriter(OutputFile& file, const Scene& scene)
        : file_(file)
        , scene_(scene)
    {
        Row row;
        row.add("frame");
        row.add("time");
        row.add("library_us");
        for (const Ray& ray : scene_.rays) {
            row.names("ray " + ray.name,
                      {"state", "target", "origin_x", "origin_y", "origin_z", "end_x", "end_y", "end_z"});
        }
        for (const Fingertip& tip : scene_.fingertips) {
            row.names("fingertip " + tip.name,
                      {"state", "target", "tip_x", "tip_y", "tip_z", "touch_x", "touch_y", "touch_z"});
        }
        for (const Patch& patch : scene_.patches) {
            row.names("patch " + patch.name, {"state", "extent"});
        }
        for (const HandChain& hand : scene_.hands) {
            row.names(fmt::format("hand {}", nameOf(hand.side)),
                      {"raw_x", "raw_y", "raw_z", "filtered_x", "filtered_y", "filtered_z", "shown_x",
                       "shown_y", "shown_z"});
        }
        addGripNames(row, Kind::Pinch, scene_.pinches);
        addGripNames(row, Kind::Palm, scene_.palms);
        for (const DirectionTrack& track : scene_.directions) {
            row.names("direction " + track.name, {"angle", "alignment", "active"});
        }
        file_.print("{}\n", row.line());
    }

    void frame(const Observation& seen, const std::vector<Transition>&) override
    {
        Row row;
        row.add(fmt::format("{}", seen.frame));
        row.add(fmt::format("{}", seen.time));
        row.add(fmt::format("{:.1f}", seen.microseconds));
        for (const RayView& ray : seen.rays) {
            row.add(nameOf(stateOf(ray.state)));
            row.addName(scene_.rayTarget(ray.target));
            row.add(ray.origin, ray.tracked);
            row.add(ray.end, ray.tracked);
        }
        for (const FingertipView& tip : seen.fingertips) {
            row.add(nameOf(stateOf(tip.state)));
            row.addName(scene_.patchName(tip.target));
            row.add(tip.tip, tip.tracked);
            row.add(tip.touch.value_or(Vec3{}), tip.touch.has_value());
        }
        for (const PatchView& patch : seen.patches) {
            row.add(nameOf(stateOf(patch.state)));
            row.add(patch.extent);
        }
        for (const HandView& hand : seen.hands) {
            for (const velk_HandData* data : {&hand.raw, &hand.filtered, &hand.shown}) {
                row.add(data->rootPose.position, hand.tracked);
            }
        }
        addGrips(row, scene_.pinches, seen.pinches);
        addGrips(row, scene_.palms, seen.palms);
        for (const DirectionView& direction : seen.directions) {
            row.add(direction.tracked ? fmt::format("{}", direction.angle) : std::string());
            row.add(alignmentName(direction.alignment));
            row.add(direction.active ? "1" : "0");
        }
        file_.print("{}\n", row.line());
    }

private:
    OutputFile& file_;
    const Scene& scene_;
};

} // namespace

std::unique_ptr<Observer> writeFrames(OutputFile& file, const Scene& scene)
{
    return std::make_unique<FrameWriter>(file, scene);
}

} // namespace velk_tools
