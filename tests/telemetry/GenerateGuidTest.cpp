// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/GenerateGuid.h"

#include <gtest/gtest.h>

TEST(GenerateGuid, MatchesValuesComputedWithArbitraryPrecision)
{
    const auto guidFrom = [](unsigned int seed) { return velk::telemetry::generateGuidStringCore(&seed); };
    EXPECT_EQ(guidFrom(0U), "6656aa1f6ad4775adaf95ac61b87a5f");
    EXPECT_EQ(guidFrom(1U), "46b52dfb1e23ef547f6af5df37cc71e1");
    EXPECT_EQ(guidFrom(615U), "87c763c7c8114601324a5cf397d0") << "no padding";
    EXPECT_EQ(guidFrom(4294967295U), "5e826423784ff601be43579bb482dd");
}
