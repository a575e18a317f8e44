// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/SceneReader.h"

#include <algorithm>
#include <numeric>
#include <set>

#include <fmt/format.h>

#include "host/Files.h"
#include "host/InputError.h"
#include "host/scene/JsonObject.h"
#include "host/scene/Suggestion.h"

namespace velk_tools
{

namespace
{

constexpr std::array<std::string_view, 2> kViewNames{"good", "poor"};
constexpr float kDefaultRayLength = 5;

constexpr std::array<std::pair<std::string_view, float velk_PokeInteractableConfig::*>, 11> kConfigNumbers{{
    {"enterHoverNormal", &velk_PokeInteractableConfig::enterHoverNormal},
    {"enterHoverTangent", &velk_PokeInteractableConfig::enterHoverTangent},
    {"exitHoverNormal", &velk_PokeInteractableConfig::exitHoverNormal},
    {"exitHoverTangent", &velk_PokeInteractableConfig::exitHoverTangent},
    {"cancelSelectNormal", &velk_PokeInteractableConfig::cancelSelectNormal},
    {"cancelSelectTangent", &velk_PokeInteractableConfig::cancelSelectTangent},
    {"maxPinDistance", &velk_PokeInteractableConfig::maxPinDistance},
    {"dragNormal", &velk_PokeInteractableConfig::dragNormal},
    {"dragTangent", &velk_PokeInteractableConfig::dragTangent},
    {"dragEaseDuration", &velk_PokeInteractableConfig::dragEaseDuration},
    {"minNormal", &velk_PokeInteractableConfig::minNormal},
}};

constexpr std::array<std::pair<std::string_view, uint8_t velk_PokeInteractableConfig::*>, 3> kConfigFlags{{
    {"positionPinningEnabled", &velk_PokeInteractableConfig::positionPinningEnabled},
    {"dragThresholdsEnabled", &velk_PokeInteractableConfig::dragThresholdsEnabled},
    {"minThresholdsEnabled", &velk_PokeInteractableConfig::minThresholdsEnabled},
}};

/// Names of the filter's settings; a name's place is its attribute id less one.
constexpr std::array<std::string_view, 10> kFilterNames{
    "RootPositionBeta",    "RootPositionMinCutoff",  "RootRotationBeta", "RootRotationMinCutoff",
    "JointRotationBeta",   "JointRotationMinCutoff", "UpdateRate",       "RootPositionDCutoff",
    "RootRotationDCutoff", "JointRotationDCutoff"};

Side readSide(JsonObject& object, const std::string& key)
{
    return static_cast<Side>(object.choice(key, kSideNames));
}

Pose readPose(JsonObject& object)
{
    Pose pose{kNoRotation, object.vector("position")};
    if (object.has("rotation")) {
        const auto q = object.numbers<4>("rotation");
        const Quat rotation{q[0], q[1], q[2], q[3]};
        if (const float size = length(rotation); !(size > 0) || !std::isfinite(size)) {
            object.fail("rotation", "expected a quaternion that has a length");
        }
        pose.orientation = normalized(rotation);
    } else if (object.has("facing")) {
        const Vec3 up = object.has("up") ? object.direction("up") : Vec3{0, 1, 0};
        pose.orientation = turnZTo(object.direction("facing"), up);
    }
    return pose;
}

Panel readPanel(JsonObject& object)
{
    Panel panel;
    panel.name = object.text("name");
    panel.pose = readPose(object);
    const auto half = object.numbers<2>("halfSize");
    panel.halfSize = {half[0], half[1]};
    return panel;
}

Box readBox(JsonObject& object)
{
    return {object.text("name"), object.vector("center"), object.vector("size")};
}

velk_PokeInteractableConfig readConfig(JsonObject& object)
{
    velk_PokeInteractableConfig config;
    velk_PokeInteractable_GetDefaultConfig(&config);
    for (const auto& [name, field] : kConfigNumbers) {
        config.*field = object.number(std::string(name), config.*field);
    }
    for (const auto& [name, field] : kConfigFlags) {
        if (object.has(name)) {
            config.*field = object.flag(std::string(name)) ? 1 : 0;
        }
    }
    object.done();
    return config;
}

Patch readPatch(JsonObject& object)
{
    Patch patch;
    patch.name = object.text("name");
    patch.pose = readPose(object);
    for (JsonObject& clipper : object.objects("clippers")) {
        patch.clippers.push_back({clipper.vector("position"), clipper.vector("size")});
        clipper.done();
    }
    velk_PokeInteractable_GetDefaultConfig(&patch.config);
    if (object.has("config")) {
        JsonObject config = object.object("config");
        patch.config = readConfig(config);
    }
    if (object.has("button")) {
        JsonObject button = object.object("button");
        patch.button = Button{button.positive("travel")};
        button.done();
    }
    return patch;
}

JointPair readJointPair(JsonObject& object)
{
    return {readSide(object, "hand"), object.choice("from", kJointNames), object.choice("to", kJointNames)};
}

Ray readRay(JsonObject& object)
{
    Ray ray;
    ray.name = object.text("name");
    ray.length = object.positive("length", kDefaultRayLength);
    JsonObject driver = object.object("driver");
    if (driver.has("device")) {
        ray.driver = static_cast<Device>(driver.choice("device", kDeviceNames));
    } else {
        ray.driver = readJointPair(driver);
    }
    driver.done();
    if (object.has("select")) {
        JsonObject select = object.object("select");
        if (select.has("trigger")) {
            ray.select = TriggerSelect{static_cast<Device>(select.choice("trigger", kDeviceNames))};
        } else {
            ray.select = PinchSelect{readSide(select, "pinch"), select.choice("finger", kFingerNames)};
        }
        select.done();
    }
    return ray;
}

Fingertip readFingertip(JsonObject& object)
{
    return {object.text("name"), readSide(object, "hand"), object.choice("joint", kJointNames)};
}

HandChain readHand(JsonObject& object, const Scene& scene)
{
    HandChain hand;
    hand.side = readSide(object, "hand");
    hand.joints = object.choices("joints", kJointNames);
    if (object.has("filter")) {
        JsonObject filter = object.object("filter");
        for (std::size_t i = 0; i < kFilterNames.size(); ++i) {
            if (filter.has(kFilterNames[i])) {
                hand.filter.emplace_back(static_cast<int>(i + 1),
                                         filter.number(std::string(kFilterNames[i])));
            }
        }
        filter.done();
    }
    if (object.has("limiter")) {
        const std::string name = object.text("limiter");
        std::vector<std::string_view> names;
        for (std::size_t i = 0; i < scene.fingertips.size(); ++i) {
            if (scene.fingertips[i].side == hand.side) {
                names.push_back(scene.fingertips[i].name);
                hand.limiter = names.back() == name ? i : hand.limiter;
            }
        }
        if (!hand.limiter) {
            object.fail("limiter", "names no fingertip of this hand" + suggestion(name, names));
        }
    }
    return hand;
}

GripTrack readGrip(JsonObject& object)
{
    GripTrack track;
    track.side = readSide(object, "hand");
    track.fingers = object.choices("fingers", kFingerNames);
    if (track.fingers.empty()) {
        track.fingers.resize(kFingerNames.size());
        std::iota(track.fingers.begin(), track.fingers.end(), std::size_t{0});
    }
    return track;
}

GripTrack readPinch(JsonObject& object)
{
    GripTrack track = readGrip(object);
    track.goodView = !object.has("view") || object.choice("view", kViewNames) == 0;
    return track;
}

DirectionTrack readDirection(JsonObject& object)
{
    DirectionTrack track;
    track.name = object.text("name");
    track.pair = readJointPair(object);
    track.reference = object.direction("reference");
    track.middleAngle = object.number("middleAngle");
    track.farAngle = object.number("farAngle");
    track.wanted = static_cast<int32_t>(object.choice("wanted", kAlignmentNames));
    return track;
}

/// Reads a list, one object after the other, with read.
template <typename T, typename Read>
void readList(JsonObject& root, const std::string& key, std::vector<T>& list, Read read)
{
    for (JsonObject& object : root.objects(key)) {
        list.push_back(read(object));
        object.done();
    }
}

/// A list whose entries have names.
template <typename T, typename Read>
void readNamed(JsonObject& root, const std::string& key, std::vector<T>& list, Read read)
{
    readList(root, key, list, read);
    std::set<std::string_view> names;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!names.insert(list[i].name).second) {
            root.fail(fmt::format("{}[{}].name", key, i), fmt::format("'{}' stands twice", list[i].name));
        }
    }
}

/// A list with one entry for each hand at most.
template <typename T, typename Read>
void readSided(JsonObject& root, const std::string& key, std::vector<T>& list, Read read)
{
    readList(root, key, list, read);
    if (list.size() > 2 || (list.size() == 2 && list[0].side == list[1].side)) {
        root.fail(key, "has one entry for each hand at most");
    }
}

void checkPinchSelects(const JsonObject& root, const Scene& scene)
{
    for (std::size_t i = 0; i < scene.rays.size(); ++i) {
        const auto* select = std::get_if<PinchSelect>(&scene.rays[i].select);
        const auto ofHand = [&](const GripTrack& track) { return track.side == select->side; };
        if (select != nullptr && std::none_of(scene.pinches.begin(), scene.pinches.end(), ofHand)) {
            root.fail(fmt::format("rays[{}].select.pinch", i), "the scene has no pinch for this hand");
        }
    }
}

Scene readScene(JsonObject root)
{
    Scene scene;
    scene.title = root.has("title") ? root.text("title") : std::string();
    readNamed(root, "panels", scene.panels, readPanel);
    readNamed(root, "boxes", scene.boxes, readBox);
    readNamed(root, "patches", scene.patches, readPatch);
    readNamed(root, "rays", scene.rays, readRay);
    readNamed(root, "fingertips", scene.fingertips, readFingertip);
    readSided(root, "hands", scene.hands, [&scene](JsonObject& object) { return readHand(object, scene); });
    readSided(root, "pinches", scene.pinches, readPinch);
    readSided(root, "palms", scene.palms, readGrip);
    readNamed(root, "directions", scene.directions, readDirection);
    root.done();
    checkPinchSelects(root, scene);
    return scene;
}

/// The library's message is long and names its own error numbers; the place and the reason are enough.
std::string parseMessage(const nlohmann::json::exception& error)
{
    const std::string message = error.what();
    const std::size_t line = message.find("line ");
    return line == std::string::npos ? message.substr(message.find("] ") + 2) : message.substr(line);
}

/// Of two equal keys the parser would drop the first.
nlohmann::json::parser_callback_t refuseTwins(const std::string& file)
{
    using Event = nlohmann::json::parse_event_t;
    return [file, open = std::vector<std::set<std::string>>()](int, Event event,
                                                               const nlohmann::json& parsed) mutable {
        if (event == Event::object_start) {
            open.emplace_back();
        } else if (event == Event::object_end) {
            open.pop_back();
        } else if (event == Event::key && !open.back().insert(parsed.get<std::string>()).second) {
            throw InputError(fmt::format("{}: the key '{}' stands twice", file, parsed.get<std::string>()));
        }
        return true;
    };
}

} // namespace

Scene parseScene(const std::string& name, std::string_view text)
{
    nlohmann::json json;
    try {
        json = nlohmann::json::parse(text, refuseTwins(name));
    } catch (const nlohmann::json::exception& error) {
        throw InputError(fmt::format("{}: {}", name, parseMessage(error)));
    }
    Scene scene = readScene(JsonObject(name, "", json));
    scene.file = printable(name);
    return scene;
}

Scene loadScene(const std::string& path)
{
    return parseScene(path, readTextFile(path));
}

void checkScene(const Scene& scene, const Recording& recording)
{
    const auto fail = [&](const std::string& key, const std::string& missing) {
        throw InputError(
            fmt::format("{}: {}: the recording '{}' has no {}", scene.file, key, recording.name, missing));
    };
    const auto requireHand = [&](const std::string& key, Side side) {
        if (!recording.hasHand(side)) {
            fail(key, fmt::format("{} hand", nameOf(side)));
        }
    };
    const auto requireHands = [&](const char* key, const auto& entries, auto sideOf) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            requireHand(fmt::format("{}[{}].hand", key, i), sideOf(entries[i]));
        }
    };

    for (std::size_t i = 0; i < scene.rays.size(); ++i) {
        const std::string key = fmt::format("rays[{}].driver", i);
        if (const auto* pair = std::get_if<JointPair>(&scene.rays[i].driver)) {
            requireHand(key, pair->side);
        } else if (!recording.hasDevices()) {
            fail(key, "devices");
        }
    }
    const auto side = [](const auto& entry) { return entry.side; };
    requireHands("fingertips", scene.fingertips, side);
    requireHands("hands", scene.hands, side);
    requireHands("pinches", scene.pinches, side);
    requireHands("palms", scene.palms, side);
    requireHands("directions", scene.directions, [](const auto& entry) { return entry.pair.side; });
}

} // namespace velk_tools
