// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Holds scene.schema.json against the reader of scenes: the same keys, and the same verdicts.

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "host/InputError.h"
#include "host/scene/SceneReader.h"

#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

namespace velk::test
{

namespace
{

using nlohmann::json;
using Pointer = json::json_pointer;
using Words = std::set<std::string>;

/// Holds an object of every kind, those with alternatives in each of them. No direction has one number alone,
/// so that none becomes zero when one number does.
const json kScene = json::parse(R"({
  "title": "t",
  "panels": [{"name": "a", "position": [0, 0, 0], "rotation": [0, 0.6, 0, 0.8], "halfSize": [1, 1]},
             {"name": "b", "position": [0, 0, 0], "facing": [1, 1, 0], "up": [1, 0, 1], "halfSize": [1, 1]}],
  "boxes": [{"name": "a", "center": [0, 0, 0], "size": [1, 1, 1]}],
  "patches": [{"name": "a", "position": [0, 0, 0], "rotation": [0, 0.6, 0, 0.8],
               "clippers": [{"position": [0, 0, 0], "size": [1, 1, 1]}],
               "config": {"minNormal": 1, "minThresholdsEnabled": true}, "button": {"travel": 1}},
              {"name": "b", "position": [0, 0, 0], "facing": [1, 1, 0], "up": [1, 0, 1]}],
  "rays": [{"name": "a", "driver": {"device": "left"}, "select": {"trigger": "left"}, "length": 1},
           {"name": "b", "driver": {"hand": "left", "from": "Root0", "to": "IndexTip"},
            "select": {"pinch": "left", "finger": "index"}}],
  "fingertips": [{"name": "a", "hand": "left", "joint": "IndexTip"}],
  "hands": [{"hand": "left", "filter": {"UpdateRate": 60}, "joints": ["Root0"], "limiter": "a"}],
  "pinches": [{"hand": "left", "fingers": ["index"], "view": "good"}],
  "palms": [{"hand": "right", "fingers": ["thumb"]}],
  "directions": [{"name": "a", "hand": "left", "from": "Root0", "to": "IndexTip", "reference": [1, 1, 0],
                  "middleAngle": 20, "farAngle": 40, "wanted": "close"}]
})");

std::string textOf(const std::filesystem::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

const json& schema()
{
    static const json kSchema = json::parse(textOf(VELK_PLAY_DIR "/scene.schema.json"));
    return kSchema;
}

/// What the reader has against a scene; nothing if it takes it.
std::string complaint(const json& scene)
{
    try {
        velk_tools::parseScene("scene", scene.dump());
    } catch (const velk_tools::InputError& error) {
        return error.what();
    }
    return "";
}

/// Calls `visit` with the way to each object in `value`.
void forEachObject(const json& value, const Pointer& way, const std::function<void(const Pointer&)>& visit)
{
    if (value.is_object()) {
        visit(way);
    }
    if (value.is_structured()) {
        for (const auto& [key, entry] : value.items()) {
            forEachObject(entry, value.is_array() ? way / std::stoul(key) : way / key, visit);
        }
    }
}

/// The parts of the schema for what lies at `key` of what `part` describes, alternatives and references
/// resolved.
void resolve(const json& part, std::vector<const json*>& found)
{
    if (part.contains("$ref")) {
        resolve(schema().at(Pointer(part["$ref"].get<std::string>().substr(1))), found);
    } else if (part.contains("oneOf")) {
        for (const json& alternative : part["oneOf"]) {
            resolve(alternative, found);
        }
    } else {
        found.push_back(&part);
    }
}

std::vector<const json*> partsAt(const Pointer& way)
{
    if (way.empty()) {
        return {&schema()};
    }
    std::vector<const json*> found;
    for (const json* parent : partsAt(way.parent_pointer())) {
        if (parent->contains("items")) {
            resolve((*parent)["items"], found);
        } else if (parent->contains("properties") && (*parent)["properties"].contains(way.back())) {
            resolve((*parent)["properties"][way.back()], found);
        }
    }
    return found;
}

Words propertiesAt(const Pointer& way)
{
    Words keys;
    for (const json* part : partsAt(way)) {
        for (const auto& [key, value] : part->at("properties").items()) {
            keys.insert(key);
        }
    }
    return keys;
}

/// All that could be a key: the words that stand in quotes in the reader's sources, and the schema's own.
Words vocabulary()
{
    Words words;
    const std::regex quoted("\"([A-Za-z]+)\"");
    for (const auto& file : std::filesystem::directory_iterator(VELK_HOST_DIR "/scene")) {
        const std::string text = textOf(file.path());
        for (std::sregex_iterator i(text.begin(), text.end(), quoted), end; i != end; ++i) {
            words.insert((*i)[1]);
        }
    }
    forEachObject(schema(), Pointer(), [&words](const Pointer& way) {
        if (!way.empty() && way.back() == "properties") {
            for (const auto& [key, value] : schema().at(way).items()) {
                words.insert(key);
            }
        }
    });
    return words;
}

Words keysTakenAt(const Pointer& way, const Words& words)
{
    Words taken;
    for (const std::string& word : words) {
        json scene = kScene;
        scene[way][word]; // keeps what is there
        if (complaint(scene).find(": unknown key") == std::string::npos) {
            taken.insert(word);
        }
    }
    return taken;
}

} // namespace

TEST(SceneSchema, HasTheKeysThatTheReaderTakes)
{
    ASSERT_EQ(complaint(kScene), "");
    const Words words = vocabulary();
    // By the schema's properties, which tell kinds of objects apart: what the reader takes in any of a kind.
    std::map<Words, Words> taken;
    forEachObject(kScene, Pointer(), [&](const Pointer& way) {
        const Words properties = propertiesAt(way);
        EXPECT_FALSE(properties.empty()) << way;
        taken[properties].merge(keysTakenAt(way, words));
    });
    EXPECT_EQ(taken.size(), 16U);
    for (const auto& [properties, keys] : taken) {
        EXPECT_EQ(keys, properties);
    }
}

namespace
{

class Validator
{
public:
    Validator()
    {
        valijson::SchemaParser(valijson::SchemaParser::kDraft7)
            .populateSchema(valijson::adapters::NlohmannJsonAdapter(schema()), rules_);
    }

    bool accepts(const json& scene)
    {
        return validator_.validate(rules_, valijson::adapters::NlohmannJsonAdapter(scene), nullptr);
    }

private:
    valijson::Schema rules_;
    valijson::Validator validator_;
};

/// What only the reader sees: how the parts of a scene go together.
bool isAboutTheWhole(const std::string& complaint)
{
    constexpr std::array kMessages{"stands twice", "names no fingertip", "has one entry", "has no pinch"};
    return std::any_of(kMessages.begin(), kMessages.end(),
                       [&](const char* message) { return complaint.find(message) != std::string::npos; });
}

} // namespace

TEST(SceneSchema, TakesTheScenesThatComeAlong)
{
    Validator validator;
    for (const auto& file : std::filesystem::directory_iterator(VELK_SCENES_DIR)) {
        if (file.path().extension() != ".json") {
            continue;
        }
        EXPECT_TRUE(validator.accepts(json::parse(textOf(file.path())))) << file;
    }
}

TEST(SceneSchema, JudgesLikeTheReader)
{
    Validator validator;
    const auto compare = [&](const json& scene, const std::string& change) {
        const std::string found = complaint(scene);
        if (!isAboutTheWhole(found)) {
            EXPECT_EQ(validator.accepts(scene), found.empty()) << change << ": " << found;
        }
    };
    const json others = json::parse(R"([null, true, 0, -1, "", "x", [], {}])");
    const json leaves = kScene.flatten();
    for (const auto& [way, leaf] : leaves.items()) {
        // Every value, and all that it lies in, replaced; and taken away where it has a key.
        for (Pointer place(way); !place.empty(); place = place.parent_pointer()) {
            for (const json& other : others) {
                json scene = kScene;
                scene[place] = other;
                compare(scene, place.to_string() + " = " + other.dump());
            }
            json scene = kScene;
            json& holder = scene[place.parent_pointer()];
            if (holder.is_object()) {
                holder.erase(place.back());
            } else {
                holder.erase(std::stoul(place.back()));
            }
            compare(scene, place.to_string() + " erased");
        }
    }
}

} // namespace velk::test
