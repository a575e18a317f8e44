// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#if __has_include(<nlohmann/json.hpp>) // comes with the tools
#include <nlohmann/json.hpp>

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace
{

using namespace testing;
using nlohmann::json;

const std::string kFolder = VELK_DATA_DIR "/../velk_capi/";

json description()
{
    std::ifstream file(kFolder + "api/velk.json");
    return json::parse(file);
}

std::vector<std::string> namesOf(const json& list)
{
    std::vector<std::string> names;
    for (const json& entry : list) {
        names.push_back(entry["name"]);
    }
    return names;
}

} // namespace

// Whose list is held against the header and the library by another test.
TEST(Description, HasAllFunctions)
{
    std::ifstream file(kFolder + "exports.txt");
    std::vector<std::string> exported;
    for (std::string line; std::getline(file, line);) {
        exported.push_back(line);
    }
    const json all = description();
    EXPECT_THAT(namesOf(all["functions"]), UnorderedElementsAreArray(exported));
}

TEST(Description, KnowsAllThatItSpeaksOf)
{
    const json all = description();
    std::set<std::string> types{"float", "int32_t", "int", "uint8_t", "bool", "char", "void"};
    for (const char* list : {"handles", "opaque", "enumerations", "records"}) {
        for (const std::string& name : namesOf(all[list])) {
            EXPECT_TRUE(types.insert(name).second) << name << " stands twice";
        }
    }
    for (const json& record : all["records"]) {
        for (const json& field : record["fields"]) {
            EXPECT_TRUE(types.contains(field["type"])) << record["name"] << field["name"];
        }
    }
    for (const json& function : all["functions"]) {
        EXPECT_TRUE(types.contains(function["returns"]["type"])) << function["name"];
        EXPECT_NE(function["text"], "") << function["name"];
        EXPECT_TRUE(all["sections"].contains(function["section"])) << function["name"];
        for (const json& parameter : function["parameters"]) {
            EXPECT_TRUE(parameter.contains("callback") || types.contains(parameter["type"]))
                << function["name"] << parameter["name"];
        }
    }
    for (const json& handle : all["handles"]) {
        EXPECT_THAT(handle["creates"], Not(IsEmpty())) << handle["name"];
        EXPECT_THAT(namesOf(all["functions"]), Contains(handle["destroys"])) << handle["name"];
    }
}

// A few of each kind, as a reader of the header would say.
TEST(Description, SaysWhatAPointerMayBe)
{
    const json all = description();
    std::map<std::string, std::string> rules;
    for (const json& function : all["functions"]) {
        for (const json& parameter : function["parameters"]) {
            if (parameter.contains("null")) {
                rules[function["name"].get<std::string>() + "." + parameter["name"].get<std::string>()] =
                    parameter.value("direction", "") + " " + parameter["null"].get<std::string>();
            }
        }
    }
    EXPECT_EQ(rules["velk_PointablePlane_Create.size"], "in allowed");
    EXPECT_EQ(rules["velk_PointableAxisAlignedBox_SetBounds.upper"], "in allowed");
    EXPECT_EQ(rules["velk_PokeInteractable_CreateWithConfig.config"], "in allowed");
    EXPECT_EQ(rules["velk_FingerPinchGrabAPI_UpdateHandWristHMDData.hmd"], "in allowed");
    EXPECT_EQ(rules["velk_FingerPinchGrabAPI_UpdateHandWristHMDData.data"], "in invalid");
    EXPECT_EQ(rules["velk_PointableAxisAlignedBox_SetCentroid.centroid"], "in refused");
    EXPECT_EQ(rules["velk_Interactor_GetPayload.payload"], "out refused");
    EXPECT_EQ(rules["velk_RayInteractor_SetPose.pose"], "in invalid");
    EXPECT_EQ(rules["velk_Interactor_GetState.state"], "out invalid");
    EXPECT_EQ(rules["velk_Common_GetVersion.version"], "out invalid");
    EXPECT_EQ(rules["velk_SetNativeLogCallback.callback"], " allowed");
}
#endif
