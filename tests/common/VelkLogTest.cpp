// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/CapturedLog.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace
{

using namespace velk::common::log;

std::string written(int priority, const char* file, const char* text = "text")
{
    testing::internal::CaptureStderr();
    logWithTag(priority, kTag, file, "%s", text);
    return testing::internal::GetCapturedStderr();
}

TEST(VelkLog, WritesTagSourceLetterAndMessageOnALine)
{
    EXPECT_EQ(written(kError, "a/b/Foo.ext"), "[VELK:Foo:E] text\n");
    for (const char* path : {"a\\b\\Foo.ext", "a\\b/Foo.ext", "Foo.ext", "/Foo", "a.b/Foo.bar.ext"}) {
        EXPECT_EQ(written(kInfo, path), "[VELK:Foo:I] text\n") << path;
    }
    EXPECT_EQ(written(kInfo, "F") + written(kInfo, "a/"), "[VELK:F:I] text\n[VELK::I] text\n");
}

TEST(VelkLog, CutsLongNamesAndMessages)
{
    EXPECT_EQ(written(kInfo, "abcdefghijklmnopqrstuvwxyz1"), "[VELK:abcdefghijklmnopqrstuvwxyz:I] text\n");
    for (const std::size_t length : {223U, 224U, 300U}) {
        const std::string message(length, 'm');
        EXPECT_EQ(written(kInfo, "F", message.c_str()), "[VELK:F:I] " + std::string(223, 'm') + "\n");
    }
}

TEST(VelkLog, DropsWhatLiesBelowTheLevel)
{
    EXPECT_EQ(written(kDebug, "F") + written(kInfo, "F"), "[VELK:F:I] text\n");
    setLoggingLevel(kVerbose);
    EXPECT_EQ(written(kVerbose, "F", "1") + written(kDebug, "F", "2"), "[VELK:F:V] 1\n[VELK:F:D] 2\n");
    setLoggingLevel(kWarning);
    EXPECT_EQ(getLoggingLevel(), kWarning);
    EXPECT_EQ(written(kInfo, "F", "1") + written(kWarning, "F", "2"), "[VELK:F:W] 2\n");
    setLoggingLevel(-1);
    for (const int priority : {-1, 1, 7}) {
        EXPECT_THROW(logWithTag(priority, kTag, "F", "text"), std::out_of_range) << "has no letter";
    }
    resetLogLevel();
}

TEST(VelkLog, ReplacedFunctionGetsFinishedLinesUntilAnEmptyOneIsSet)
{
    const velk::test::CapturedLog captured(kInfo);
    logWithTag(kWarning, kTag, "a/Foo.ext", "%s=%d", "x", 3);
    logWithTag(kDebug, kTag, "a/Foo.ext", "dropped");
    EXPECT_THAT(captured.lines, testing::ElementsAre("VELK:Foo:5 x=3"));
    setLoggingFunction({});
    EXPECT_EQ(written(kInfo, "Foo"), "[VELK:Foo:I] text\n");
}

} // namespace
