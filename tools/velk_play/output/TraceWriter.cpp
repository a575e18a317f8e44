// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include <fmt/format.h>

#include "output/Outputs.h"
#include "play/Changes.h"

namespace velk_tools
{

namespace
{

/// A NaN's sign and payload differ between processors.
std::string text(float value)
{
    return std::isnan(value) ? "nan" : fmt::format("{}", value);
}

std::string text(Vec3 v)
{
    return fmt::format("{} {} {}", text(v.x), text(v.y), text(v.z));
}

std::string text(Quat q)
{
    return fmt::format("{} {} {} {}", text(q.x), text(q.y), text(q.z), text(q.w));
}

std::string text(const Pose& pose)
{
    return fmt::format("{} at {}", text(pose.orientation), text(pose.position));
}

/// A zero's sign counts, and a NaN is itself.
auto bitsOf(const Quat& q)
{
    return std::bit_cast<std::array<std::uint32_t, 4>>(q);
}

/// The handle, too: which numbers are given out is part of what must not change.
std::string target(const std::string& name, VelkInteractableHandle handle)
{
    return name.empty() ? "-" : fmt::format("'{}' #{}", name, static_cast<int32_t>(handle));
}

const char* gripState(const GripView& grip, std::size_t finger)
{
    if (grip.changed[finger]) {
        return grip.holds[finger] ? "starts" : "ends";
    }
    return grip.holds[finger] ? "holds" : "open";
}

class TraceWriter : public Observer
{
public:
    TraceWriter(OutputFile& file, const Scene& scene, const Recording& recording, std::size_t step)
        : file_(file)
        , scene_(scene)
        , step_(step)
    {
        file_.print("{}, recording {}, {} frames\n", scene.title, recording.name, recording.frames.size());
    }

    void frame(const Observation& seen, const std::vector<Transition>& changes) override
    {
        if (seen.frame % step_ != 0 && changes.empty()) {
            return;
        }
        file_.print("\nframe {} at {} s\n", seen.frame, seen.time);
        writeRays(seen);
        writePokes(seen);
        for (std::size_t i = 0; i < seen.hands.size() && seen.frame % step_ == 0; ++i) {
            writeHand(scene_.hands[i], seen.hands[i]);
        }
        writeGrips(Kind::Pinch, scene_.pinches, seen.pinches);
        writeGrips(Kind::Palm, scene_.palms, seen.palms);
        writeDirections(seen);
    }

private:
    void writeRays(const Observation& seen)
    {
        for (std::size_t i = 0; i < seen.rayTargets.size(); ++i) {
            file_.print("target '{}' {}\n", scene_.rayTarget(static_cast<int>(i)),
                        nameOf(stateOf(seen.rayTargets[i])));
        }
        for (std::size_t i = 0; i < seen.rays.size(); ++i) {
            const RayView& ray = seen.rays[i];
            file_.print("ray '{}' {} {} origin {} end {}\n", scene_.rays[i].name, nameOf(stateOf(ray.state)),
                        target(scene_.rayTarget(ray.target), ray.handle), text(ray.origin), text(ray.end));
        }
    }

    void writePokes(const Observation& seen)
    {
        for (std::size_t i = 0; i < seen.patches.size(); ++i) {
            const PatchView& patch = seen.patches[i];
            file_.print("patch '{}' {}", scene_.patches[i].name, nameOf(stateOf(patch.state)));
            if (patch.cap) {
                file_.print(" extent {} cap {}", text(patch.extent), text(*patch.cap));
            }
            file_.write("\n");
        }
        for (std::size_t i = 0; i < seen.fingertips.size(); ++i) {
            const FingertipView& tip = seen.fingertips[i];
            file_.print("fingertip '{}' {} {}", scene_.fingertips[i].name, nameOf(stateOf(tip.state)),
                        target(scene_.patchName(tip.target), tip.handle));
            if (tip.touch) {
                file_.print(" touch {}", text(*tip.touch));
            }
            file_.write("\n");
        }
    }

    void writeHand(const HandChain& chain, const HandView& hand)
    {
        const std::string_view side = nameOf(chain.side);
        if (!hand.tracked) {
            file_.print("hand {} not tracked\n", side);
            return;
        }
        file_.print("hand {} shown {}\n", side, text(hand.shown.rootPose));
        file_.print("hand {} filtered {}\n", side, text(hand.filtered.rootPose));
        for (std::size_t i = 0; i < kJointNames.size(); ++i) {
            const Quat& filtered = hand.filtered.joints[i];
            file_.print("  {} {}", kJointNames[i], text(filtered));
            if (bitsOf(filtered) != bitsOf(hand.shown.joints[i])) {
                file_.print(" shown {}", text(hand.shown.joints[i]));
            }
            file_.write("\n");
        }
    }

    void writeGrips(Kind kind, const std::vector<GripTrack>& tracks, const std::vector<GripView>& grips)
    {
        for (std::size_t i = 0; i < grips.size(); ++i) {
            const std::string who = fmt::format("{} {}", nameOf(kind), nameOf(tracks[i].side));
            if (!grips[i].tracked) {
                file_.print("{} not tracked\n", who);
                continue;
            }
            file_.print("{} center {}", who, text(grips[i].center));
            for (std::size_t finger = 0; finger < kFingerNames.size(); ++finger) {
                file_.print(", {} {} {}", kFingerNames[finger], gripState(grips[i], finger),
                            text(grips[i].scores[finger]));
            }
            file_.write("\n");
        }
    }

    void writeDirections(const Observation& seen)
    {
        for (std::size_t i = 0; i < seen.directions.size(); ++i) {
            const DirectionView& direction = seen.directions[i];
            file_.print("direction '{}' {} {}\n", scene_.directions[i].name,
                        alignmentName(direction.alignment), direction.active ? "active" : "inactive");
        }
    }

    OutputFile& file_;
    const Scene& scene_;
    std::size_t step_;
};

} // namespace

std::unique_ptr<Observer> writeTrace(OutputFile& file, const Scene& scene, const Recording& recording,
                                     std::size_t step)
{
    return std::make_unique<TraceWriter>(file, scene, recording, step);
}

} // namespace velk_tools
