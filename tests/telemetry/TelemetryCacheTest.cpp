// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/TelemetryCache.h"

#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace
{

using namespace velk::telemetry;

/// Writes what it is given as "[event a=1 b=true]", the fields sorted.
class Printer : public IEventProcessor
{
public:
    void prepareEvent(std::string_view name) override { text += '[' + std::string(name); }

    void processField(std::string_view name, Value value) override
    {
        duringField();
        std::ostringstream field;
        std::visit([&](const auto& typed) { field << std::boolalpha << ' ' << name << '=' << typed; }, value);
        fields.insert(field.str());
    }

    int finalizeEvent() override
    {
        for (const std::string& field : std::exchange(fields, {})) {
            text += field;
        }
        text += ']';
        return result;
    }

    std::string text;
    std::set<std::string> fields;
    std::function<void()> duringField = [] {};
    int result = 1;
};

class Cache : public testing::Test
{
protected:
    Cache()
    {
        cache.declareDuplexEvent("use", "used");
        cache.addEventToAllowList("use");
        cache.addEventToAllowList("plain");
        cache.setDefaultValue("use", "count", 0);
        cache.setDefaultValue("used", "flag", false);
        cache.declareDuplexField("use", "count", "flag");
        cache.initializeEvent("use");
    }

    std::string shown(const std::string& event)
    {
        Printer all;
        cache.processEvent(event, all);
        return all.text;
    }

    TelemetryCache cache;
    Printer printer;
};

TEST_F(Cache, CountsAndFlagsUntilThePassIsCleared)
{
    EXPECT_EQ(cache.incrementValue("use", "count"), UpdateValueResult::Incremented);
    cache.incrementValue("use", "count");
    cache.setValue("use", "extra", 7);
    EXPECT_EQ(shown("use") + shown("used"), "[use count=2 extra=7][used flag=true]");
    cache.clearDirtyEvents();
    EXPECT_EQ(shown("use") + shown("used"), "[use count=0 extra=7][used flag=false]");
    EXPECT_EQ(cache.processDirtyEvents(printer), 2) << "all clean";
}

TEST_F(Cache, OnlyIncrementsOfDeclaredFieldsReachTheDuplexField)
{
    cache.setValue("use", "count", 3);
    cache.processDirtyEvents(printer);
    EXPECT_EQ(printer.text, "[use count=3]");
    cache.incrementValue("use", "undeclared");
    EXPECT_EQ(shown("used"), "[used =1 flag=false]") << "counted under the empty name";
}

TEST_F(Cache, TypeOfTheFieldDecidesWhatAnIncrementDoes)
{
    cache.setValue("plain", "float", 0.5F);
    cache.setValue("plain", "double", 0.5);
    cache.setValue("plain", "bool", false);
    cache.setValue("plain", "string", std::string("text"));
    for (const char* field : {"int", "float", "double", "bool", "string"}) {
        cache.clearDirtyEvents();
        EXPECT_EQ(cache.incrementValue("plain", field), UpdateValueResult::Incremented);
        EXPECT_EQ(cache.processDirtyEvents(printer), 1) << field << " makes it dirty";
    }
    EXPECT_EQ(shown("plain"), "[plain bool=true double=1.5 float=1.5 int=1 string=text]");
}

TEST_F(Cache, RefusesUnknownEventsAndFieldsAndWrongTypes)
{
    int out = 5;
    EXPECT_EQ(cache.incrementValue("other", "count"), UpdateValueResult::EventNotAllowed);
    EXPECT_EQ(cache.setValue("other", "count", 1), UpdateValueResult::EventNotAllowed);
    EXPECT_EQ(cache.setDefaultValue("other", "count", 1), UpdateValueResult::EventNotAllowed);
    EXPECT_EQ(cache.getValue("other", "count", out), AccessValueResult::EventNotAllowed);
    EXPECT_EQ(cache.getValue("use", "other", out), AccessValueResult::FieldUnknown);
    EXPECT_THROW(cache.getValue("used", "flag", out), std::bad_variant_access);
    EXPECT_THROW(cache.getValue("plain", "count", out), std::out_of_range);
    EXPECT_EQ(out, 5);
    EXPECT_EQ(cache.processEvent("other", printer), -2);
    EXPECT_EQ(cache.processDirtyEvents(printer), 2);
}

TEST_F(Cache, FirstDeclarationStays)
{
    EXPECT_EQ(cache.addEventToAllowList("used"), 0) << "a duplex event is allowed";
    EXPECT_EQ(cache.declareDuplexEvent("use", "elsewhere"), -2);
    EXPECT_EQ(cache.declareDuplexField("use", "count", "elsewhere"), -2);
    cache.incrementValue("use", "count");
    EXPECT_EQ(shown("used") + shown("elsewhere"), "[used flag=true]");
}

TEST_F(Cache, PassAnswersForWhatTheProcessorFinished)
{
    EXPECT_EQ(cache.processEvent("plain", printer), 2) << "has no fields";
    cache.incrementValue("plain", "count");
    cache.setDefaultValue("plain", "count", 4);
    cache.resetToDefaultValues();
    printer.result = 9;
    EXPECT_EQ(cache.processEvent("plain", printer), 9);
    EXPECT_EQ(cache.processDirtyEvents(printer), 2);
    EXPECT_EQ(printer.text, "[plain count=4][plain count=4]") << "a reset leaves it dirty";
}

TEST_F(Cache, ProcessorMayCallBack)
{
    cache.setValue("plain", "a", 1);
    cache.setValue("plain", "b", 1);
    printer.duringField = [this] {
        cache.incrementValue("plain", "a");
        cache.clearDirtyEvents();
    };
    EXPECT_EQ(cache.processDirtyEvents(printer), 1);
    EXPECT_EQ(printer.text + shown("plain"), "[plain a=1 b=1][plain a=3 b=1]");
}

} // namespace
