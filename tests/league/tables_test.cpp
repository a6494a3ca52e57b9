#include <gtest/gtest.h>

#include "league/league_tables.h"

namespace rostermill {
namespace {

TEST(Tables, RatingTextsFindTheirCodes) {
  EXPECT_EQ(RatingToCode("6"), 0);
  EXPECT_EQ(RatingToCode("38"), 5);
  EXPECT_EQ(RatingToCode(" 100"), 15);
  for (const char* none : {"", "0", "7", "101", "-6", "6x", "x"}) {
    EXPECT_EQ(RatingToCode(none), std::nullopt) << none;
  }
}

TEST(Tables, JerseyPatternEndsInEmptyRows) {
  EXPECT_EQ(JerseyPattern[4][2], 3);
  EXPECT_EQ(JerseyPattern[14][4], 1);
  for (int column = 1; column <= 9; ++column) {
    EXPECT_EQ(JerseyPattern[15][column], 0);
    EXPECT_EQ(JerseyPattern[16][column], 0);
  }
}

TEST(Tables, AnIndexOutsideATableThrows) {
  IndexedArray<int, 1, 3> table;
  EXPECT_THROW(table[0], std::out_of_range);
  EXPECT_THROW(table[4], std::out_of_range);
  EXPECT_EQ(SlotLabels[30], "P");
  EXPECT_EQ(PlayNames[7][3], "Rund and Shoot 3-Wing");
}

TEST(Tables, FixedTextKeepsItsLength) {
  FixedText<3> text;
  text = "AB";
  EXPECT_EQ(text.str(), "AB ");
  text = "ABCD";
  EXPECT_EQ(text.str(), "ABC");
}

}  // namespace
}  // namespace rostermill
