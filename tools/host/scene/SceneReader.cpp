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

template <typename T>
void checkNames(const JsonObject& root, const std::string& key, const std::vector<T>& list)
{
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (list[i].name == list[j].name) {
                root.fail(fmt::format("{}[{}].name", key, i), fmt::format("'{}' stands twice", list[i].name));
            }
        }
    }
}

/// One of a kind for each hand.
template <typename T>
void checkSides(const JsonObject& root, const std::string& key, const std::vector<T>& list)
{
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
    readList(root, "panels", scene.panels, readPanel);
    readList(root, "boxes", scene.boxes, readBox);
    readList(root, "patches", scene.patches, readPatch);
    readList(root, "rays", scene.rays, readRay);
    readList(root, "fingertips", scene.fingertips, readFingertip);
    readList(root, "hands", scene.hands, [&scene](JsonObject& object) { return readHand(object, scene); });
    readList(root, "pinches", scene.pinches, readPinch);
    readList(root, "palms", scene.palms, readGrip);
    readList(root, "directions", scene.directions, readDirection);
    root.done();
    checkNames(root, "panels", scene.panels);
    checkNames(root, "boxes", scene.boxes);
    checkNames(root, "patches", scene.patches);
    checkNames(root, "rays", scene.rays);
    checkNames(root, "fingertips", scene.fingertips);
    checkNames(root, "directions", scene.directions);
    checkSides(root, "hands", scene.hands);
    checkSides(root, "pinches", scene.pinches);
    checkSides(root, "palms", scene.palms);
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

void requireHand(const Scene& scene, const std::string& key, Side side, const Recording& recording)
{
    if (!recording.hasHand(side)) {
        throw InputError(fmt::format("{}: {}: the recording '{}' has no {} hand", scene.file, key,
                                     recording.name, nameOf(side)));
    }
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
    for (std::size_t i = 0; i < scene.rays.size(); ++i) {
        const std::string key = fmt::format("rays[{}].driver", i);
        if (const auto* pair = std::get_if<JointPair>(&scene.rays[i].driver)) {
            requireHand(scene, key, pair->side, recording);
        } else if (!recording.hasDevices()) {
            throw InputError(
                fmt::format("{}: {}: the recording '{}' has no devices", scene.file, key, recording.name));
        }
    }
    for (std::size_t i = 0; i < scene.fingertips.size(); ++i) {
        requireHand(scene, fmt::format("fingertips[{}].hand", i), scene.fingertips[i].side, recording);
    }
    for (std::size_t i = 0; i < scene.hands.size(); ++i) {
        requireHand(scene, fmt::format("hands[{}].hand", i), scene.hands[i].side, recording);
    }
    for (std::size_t i = 0; i < scene.pinches.size(); ++i) {
        requireHand(scene, fmt::format("pinches[{}].hand", i), scene.pinches[i].side, recording);
    }
    for (std::size_t i = 0; i < scene.palms.size(); ++i) {
        requireHand(scene, fmt::format("palms[{}].hand", i), scene.palms[i].side, recording);
    }
    for (std::size_t i = 0; i < scene.directions.size(); ++i) {
        requireHand(scene, fmt::format("directions[{}].hand", i), scene.directions[i].pair.side, recording);
    }
}

} // namespace velk_tools
