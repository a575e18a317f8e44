// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Feeds scenes and recordings to the readers of velk-play. They may refuse what they read, with an InputError
// of one line, but must let nothing else out, and what they take must keep their promises. What begins with
// 's' is a scene, with 'h' one for a recording without devices; all else is a recording.
#include "fuzz/FuzzTarget.h"
#include "tools/host/InputError.h"
#include "tools/host/recording/RecordingReader.h"
#include "tools/host/scene/SceneReader.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <sstream>

namespace velk_fuzz
{

namespace
{

using namespace velk_tools;

void checkPose(const Pose& pose)
{
    const auto& [q, p] = pose;
    expect(std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z), "positions are finite");
    expect(std::fabs(length(q) - 1) < 1e-4f, "rotations are of unit length");
}

void checkRecording(const Recording& recording)
{
    double before = -std::numeric_limits<double>::infinity();
    for (const Frame& frame : recording.frames) {
        expect(std::isfinite(frame.time) && frame.time > before, "times are finite and rise");
        before = frame.time;
        for (const auto& hand : frame.hands) {
            if (hand) {
                checkPose(hand->root);
                std::for_each(hand->joints.begin(), hand->joints.end(), checkPose);
            }
        }
        for (const auto& device : frame.devices) {
            device ? checkPose(*device) : void();
        }
    }
    expect(recording.duration() >= 0 && recording.handRate(Side::Left) >= 0, "nothing runs backwards");
}

void readText(char form, const std::string& text)
{
    if (form == 's' || form == 'h') {
        Recording recording;
        Frame& frame = recording.frames.emplace_back();
        frame.hands[0] = std::make_unique<const HandSample>();
        if (form == 's') {
            frame.devices[0] = kIdentity;
        }
        checkScene(parseScene("scene.json", text), recording);
        return;
    }
    // The events of triggers stand after a NUL.
    const std::size_t end = std::min(text.find('\0'), text.size());
    std::istringstream rows(text.substr(0, end));
    Recording recording = parseRecording("recording.csv", rows);
    if (end < text.size()) {
        std::istringstream events(text.substr(end + 1));
        addTriggers(recording, "events.csv", events);
    }
    checkRecording(recording);
}

} // namespace

uint64_t runInput(std::string_view bytes, Run run)
{
    const bool echo = run == Run::Echo;
    std::fwrite(bytes.data(), 1, echo ? bytes.size() : 0, stdout);
    try {
        readText(bytes.empty() ? '\0' : bytes[0], std::string(bytes.substr(bytes.empty() ? 0 : 1)));
    } catch (const InputError& error) {
        const std::string_view message = error.what();
        expect(message.find('\n') == std::string_view::npos, "a complaint is one line");
        return std::hash<std::string_view>()(message);
    }
    return 0;
}

std::string decodeFile(const std::string&, std::string content)
{
    return content;
}

} // namespace velk_fuzz
