#include "rules/leader_export.h"

#include <gtest/gtest.h>

namespace rostermill::test {

namespace {

constexpr int quarterback = 0;
constexpr int offensive_lineman = 4;

TEST(LeaderExport, QuarterbacksAreInPrintZones) {
  LeaderTable rows;
  rows[1] = {"Miller, J.T.", {{15, 0, 8, 1, 2, 3, 4, 5}}};
  rows[2] = {"Exactly Twenty-One, A", {{0, 0, 0, 0, 0, 0, 0, 0}}};
  rows[3] = {"A Name Of Twenty-Two, B", {{14, 13, 12, 11, 10, 9, 7, 6}}};
  const auto bytes = ExportBytes(LeaderLines(rows, 3, quarterback));
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
            "     Name                   RS  RP  MS  HP  PS  PC  PA  APB  \r\n"
            "  1. Miller, J.T.           100   6  56  13  19  25  31  38  \r\n"
            "  2. Exactly Twenty-One, A   6   6   6   6   6   6   6   6  \r\n"
            "  3. A Name Of Twenty-Two,  94  88  81  75  69  63  50  44  \r\n");
}

TEST(LeaderExport, LinemenHaveFourColumnsAndThreeDigitRanks) {
  LeaderTable rows;
  for (int k = 1; k <= 140; ++k) rows[k] = {"Dot, Al", {{2, 3, 4, 5, 15, 15, 15, 15}}};
  const auto lines = LeaderLines(rows, 140, offensive_lineman);
  ASSERT_EQ(lines.size(), 141U);
  EXPECT_EQ(lines[0], "     Name                   RS  RP  MS  HP  ");
  EXPECT_EQ(lines[9], "  9. Dot, Al                19  25  31  38  ");
  EXPECT_EQ(lines[99], " 99. Dot, Al                19  25  31  38  ");
  EXPECT_EQ(lines[140], "140. Dot, Al                19  25  31  38  ");
}

}  // namespace

}  // namespace rostermill::test
