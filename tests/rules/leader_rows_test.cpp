#include "rules/leader_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <set>
#include <tuple>

#include "tests/support/sample.h"

namespace rostermill::test {

namespace {

using testing::ElementsAre;

enum Group { QB, RB, WR, TE, OL, DL, LB, Secondary, Kicker, Punter };

/// Every player is named "T<team>S<slot>".
std::unique_ptr<LeagueSession> NumberedLeague() {
  auto session = std::make_unique<LeagueSession>();
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      LeagueOf(*session).NameData[team][slot].LastName =
          "T" + std::to_string(team) + "S" + std::to_string(slot);
    }
  }
  return session;
}

int Fill(LeagueSession& session, int group) {
  return FillLeaderRows(LeagueOf(session), group, session.LeaderRows);
}

std::string Names(LeagueSession& session, int first, int last) {
  std::string names;
  for (int k = first; k <= last; ++k) names += session.LeaderRows[k].Name;
  return names;
}

std::vector<int> Codes(const LeaderRow& row) {
  return {row.Attr.begin(), row.Attr.end()};
}

TEST(LeaderFill, EachGroupTakesItsSlotsInOrderUnderEveryFormation) {
  auto session = NumberedLeague();
  LeagueOf(*session).TeamData[2].Formation = 1;
  LeagueOf(*session).TeamData[3].Formation = 2;
  const std::vector<std::tuple<Group, int, std::string>> expected{
      {QB, 56, "T1s1,T1s2,T2s1,T2s2,T3s1,T3s2,"},
      {RB, 112, "T1s3,T1s4,T1s5,T1s6,T2s3,T2s5,T2s6,T2s9,T3s3,T3s5,T3s6,T3s9,"},
      {WR, 114,
       "T1s7,T1s8,T1s9,T1s10,T2s4,T2s7,T2s8,T2s10,T2s11,T2s12,"
       "T3s4,T3s7,T3s8,T3s10,"},
      {TE, 54, "T1s11,T1s12,T3s11,T3s12,T4s11,T4s12,"},
      {OL, 140, "T1s13,T1s14,T1s15,T1s16,T1s17,T2s13,"},
      {DL, 84, "T1s18,T1s19,T1s20,T2s18,"},
      {LB, 112, "T1s21,T1s22,T1s23,T1s24,T2s21,"},
      {Secondary, 112, "T1s25,T1s26,T1s27,T1s28,T2s25,"},
      {Kicker, 28, "T1s29,T2s29,T3s29,"},
      {Punter, 28, "T1s30,T2s30,T3s30,"}};
  for (const auto& [group, rows, first_teams] : expected) {
    EXPECT_EQ(Fill(*session, group), rows) << group;
    const auto count = static_cast<int>(std::count(first_teams.begin(), first_teams.end(), ','));
    EXPECT_EQ(Names(*session, 1, count), first_teams) << group;
  }
}

TEST(LeaderFill, ColumnsStartWithRunningSpeedAndKeepTheGroupsOrder) {
  auto session = NumberedLeague();
  LeagueData& league = LeagueOf(*session);
  league.QBData[1][2] = {2, 1, 3, 4, 99, 5, 6, 7, 8};
  league.SkillData[1][1] = {2, 1, 3, 4, 99, 5, 6, 1, 1};
  league.LineData[1][5] = {2, 1, 3, 4, 99};
  league.DefenseData[1][1] = {2, 1, 3, 4, 99, 5, 6};
  league.KickData[1][2] = {2, 1, 3, 4, 99, 5, 6};
  for (LeaderRow& row : session->LeaderRows) row.Attr = {{9, 9, 9, 9, 9, 9, 9, 9}};
  Fill(*session, OL);
  EXPECT_THAT(Codes(session->LeaderRows[5]), ElementsAre(1, 2, 3, 4, 9, 9, 9, 9));
  for (const int group : {RB, DL, Punter}) {
    Fill(*session, group);
    EXPECT_THAT(Codes(session->LeaderRows[1]), ElementsAre(1, 2, 3, 4, 5, 6, 9, 9)) << group;
  }
  Fill(*session, QB);
  EXPECT_THAT(Codes(session->LeaderRows[2]), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST(LeaderFill, CapitalsFollowBlanksAndPeriodsOnly) {
  auto session = NumberedLeague();
  const std::vector<std::array<const char*, 3>> expected{
      {"MILLER", "j.t.", "Miller, J.T."},
      {"O'BRINE-FALK", "al", "O'brine-falk, Al"},
      {"VAN DORN", "ed  ", "Van Dorn, Ed"},
      {"PLOVER", "", "Plover,"},
      {"", "sam", ", Sam"},
      {"\xC9TIENNE", "\xE9mil", "\xC9tienne, \xE9mil"}};
  for (const auto& [last, first, shown] : expected) {
    LeagueOf(*session).NameData[1][29] = {first, last, "01"};
    Fill(*session, Kicker);
    EXPECT_EQ(session->LeaderRows[1].Name, shown);
  }
}

TEST(LeaderHeadings, EachGroupShowsTheSharedRatingsAndItsOwn) {
  const auto headings = [](int group) {
    std::string text;
    for (int column = 0; column <= 8; ++column) {
      text.append(HeadingOf(group, column).Caption).append(" ");
      if (column > 4) text.append(HeadingOf(group, column).FullName).append(" ");
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
  };
  const std::string shared = "Name RS RP MS HP";
  EXPECT_EQ(headings(QB),
            shared + " PS Passing Speed PC Pass Control PA Accuracy APB Avoid Pass Block");
  EXPECT_EQ(headings(OL), shared);
  for (const Group group : {RB, WR, TE}) {
    EXPECT_EQ(headings(group), shared + " BC Ball Control R Receptions");
  }
  for (const Group group : {DL, LB, Secondary}) {
    EXPECT_EQ(headings(group), shared + " PI Pass Interception Q Quickness");
  }
  for (const Group group : {Kicker, Punter}) {
    EXPECT_EQ(headings(group), shared + " KA Kicking Ability AKB Avoid Kick Block");
  }
  EXPECT_EQ(HeadingOf(OL, 1).FullName, "Running Speed");
  EXPECT_EQ(HeadingOf(OL, 2).FullName, "Rushing Power");
}

TEST(LeaderHeadings, NameAndAttributesSwitchEachOtherOff) {
  SortFlagTable flags;
  for (const auto& [heading, expected] :
       std::vector<std::pair<int, std::string>>{{1, "1"}, {3, "13"}, {0, "0"}, {8, "8"}, {8, ""}}) {
    ToggleHeading(flags, heading);
    std::string on;
    for (int column = 0; column <= 8; ++column) on += flags[column] ? std::to_string(column) : "";
    EXPECT_EQ(on, expected);
  }
}

TEST(LeaderSort, RanksByTheTotalOfTheCodesThenByNameBytes) {
  LeaderTable rows;
  rows[1] = {"Zed", {{7, 15, 8}}};
  rows[2] = {"abe", {{10, 0, 5}}};
  rows[3] = {"\xC9va", {{8, 1, 7}}};
  rows[4] = {"Low", {{14, 0, 0}}};
  rows[5] = {"Not in use", {{15, 15, 15}}};
  const auto order = [&rows](std::initializer_list<int> columns) {
    SortFlagTable flags;
    for (const int column : columns) flags[column] = true;
    SortLeaderRows(rows, 4, flags);
    return rows[1].Name + " " + rows[2].Name + " " + rows[3].Name + " " + rows[4].Name;
  };
  EXPECT_EQ(order({1, 3}), "Zed abe \xC9va Low");
  EXPECT_EQ(order({1}), "Low abe \xC9va Zed");
  EXPECT_EQ(order({2}), "Zed \xC9va Low abe");
  EXPECT_EQ(order({0}), "Low Zed abe \xC9va");
  EXPECT_EQ(order({}), "Low Zed abe \xC9va");
  EXPECT_EQ(rows[5].Name, "Not in use");
}

// The order of equal rows is part of the rule: exports of the same league have to be the same.
TEST(LeaderSort, EqualRowsComeOutInOneFixedOrder) {
  LeaderTable rows;
  rows[1] = {"B", {{0, 0, 0, 0, 0, 0, 0, 1}}};
  rows[2] = {"B", {{0, 0, 0, 0, 0, 0, 0, 2}}};
  rows[3] = {"A", {{0, 0, 0, 0, 0, 0, 0, 3}}};
  SortLeaderRows(rows, 3, {});
  EXPECT_THAT((std::array{rows[1].Attr[8], rows[2].Attr[8], rows[3].Attr[8]}),
              ElementsAre(3, 2, 1));
}

// The work stack is small: no input may overflow it or lose a row.
TEST(LeaderSort, SortsEveryLengthAndPattern) {
  std::mt19937 random(5);
  SortFlagTable by_speed;
  by_speed[1] = true;
  LeaderTable rows;
  for (const int count : {0, 1, 2, 3, 4, 5, 6, 7, 8, 28, 56, 139, 140, 167, 168}) {
    for (std::size_t pattern = 0; pattern < 4; ++pattern) {
      for (int k = 1; k <= count; ++k) {
        const std::array keys{k, count - k, 0, static_cast<int>(random() % 1000)};
        rows[k] = {std::to_string(k), {{static_cast<std::int16_t>(keys.at(pattern))}}};
      }
      SortLeaderRows(rows, count, by_speed);
      std::set<int> sorted;
      for (int k = 1; k <= count; ++k) {
        ASSERT_TRUE(sorted.insert(std::stoi(rows[k].Name)).second) << "twice among " << count;
        ASSERT_TRUE(k == 1 || rows[k - 1].Attr[1] >= rows[k].Attr[1]) << count;
      }
    }
  }
}

}  // namespace

}  // namespace rostermill::test
