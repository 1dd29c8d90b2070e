// SPDX-License-Identifier: MIT
#include "frontends/c/LineTable_p.h"

#include <gtest/gtest.h>

namespace Kova::Frontends {

namespace {

std::string placeIn(LineTable& table, std::uint32_t offset) {
    const LineTable::Place place = table.find(offset);
    return std::to_string(place.line) + ':' + std::to_string(place.column);
}

} // namespace

TEST(LineTableTest, countsFromOneAndTakesOffsetsInAnyOrder) {
    LineTable table("ab\n\ncd");
    EXPECT_EQ(placeIn(table, 5), "3:2");
    EXPECT_EQ(placeIn(table, 0), "1:1");
    EXPECT_EQ(placeIn(table, 2), "1:3");
    EXPECT_EQ(placeIn(table, 3), "2:1");
    EXPECT_EQ(placeIn(table, 4), "3:1");
    EXPECT_EQ(placeIn(table, 6), "3:3");
}

TEST(LineTableTest, allKindsOfLineEnds) {
    LineTable table("a\r\nb\rc\r");
    EXPECT_EQ(placeIn(table, 3), "2:1");
    EXPECT_EQ(placeIn(table, 5), "3:1");
    EXPECT_EQ(placeIn(table, 7), "4:1");
}

TEST(LineTableTest, anEmptyTextHasOneLine) {
    LineTable table("");
    EXPECT_EQ(placeIn(table, 0), "1:1");
}

} // namespace Kova::Frontends
