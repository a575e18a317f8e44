// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/scene/Suggestion.h"

#include <gtest/gtest.h>

namespace velk::test
{

TEST(Suggestion, IsTheNearestNameIfOneIsNear)
{
    const std::vector<std::string_view> names{"left",     "right",    "RingMid",   "RingTip",
                                              "IndexTip", "PinkyTip", "fingertips"};
    const auto suggested = [&names](std::string_view word) { return velk_tools::nearestName(word, names); };
    EXPECT_EQ(suggested("fingertip"), "fingertips"); // a letter left out
    EXPECT_EQ(suggested("lefft"), "left");           // added
    EXPECT_EQ(suggested("RingMit"), "RingMid");      // exchanged
    EXPECT_EQ(suggested("rihgt"), "right");          // swapped
    EXPECT_EQ(suggested("INDEXTIP"), "IndexTip");    // in another case
    EXPECT_EQ(suggested("Index_Tips"), "IndexTip");  // two at once, in a long one
    EXPECT_EQ(suggested("lt"), "");                  // two in a short one are another word
    EXPECT_EQ(suggested("MiddleProximal"), "");
    EXPECT_EQ(suggested(""), "");
    EXPECT_EQ(velk_tools::suggestion("lfet", names), "; did you mean left?");
    EXPECT_EQ(velk_tools::suggestion("", names), "");
}

} // namespace velk::test
