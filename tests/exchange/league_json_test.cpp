#include "exchange/league_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "league/load_image.h"
#include "tests/support/damage.h"
#include "tests/support/random_league.h"

namespace rostermill::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> ErrorsOf(std::string_view text, LeagueData& league) {
  std::vector<std::string> lines;
  for (const auto& error : ApplyLeagueJson(text, league)) lines.push_back(JsonErrorLine(error));
  return lines;
}

/// The errors of a text, which must leave the league as it is where there are any.
std::vector<std::string> ErrorsOf(std::string_view text) {
  static const LeagueData sample = SampleLeague();
  LeagueData league = sample;
  auto lines = ErrorsOf(text, league);
  EXPECT_TRUE(lines.empty() || league == sample) << "changed in spite of errors";
  return lines;
}

/// What the sample becomes by a text without errors.
LeagueData Applied(std::string_view text) {
  LeagueData league = SampleLeague();
  EXPECT_THAT(ErrorsOf(text, league), IsEmpty());
  return league;
}

/// Stale places of the weeks and the palette are not in the text.
void TakeWhatIsNotInTheText(LeagueData& to, const LeagueData& from) {
  to.PaletteData = from.PaletteData;
  for (int week = 0; week < WeekCount; ++week) {
    auto& games = to.ScheduleData[week];
    for (int game = games.GameCount; game < GamesPerWeek; ++game) {
      games.Games[game] = from.ScheduleData[week].Games[game];
    }
  }
}

TEST(LeagueJson, AnyLeagueComesBackWholeOntoAnyOther) {
  std::mt19937 random(1);
  auto other = std::make_unique<LeagueData>(SampleLeague());
  other->PaletteData[3].Name = "kept";
  for (int round = 0; round < LeagueTotal(8); ++round) {
    auto league = std::make_unique<LeagueData>(RandomLeague(random));
    // As the editor leaves them, and teams whose returners no load has found.
    league->NameData[1][1] = {"", "", "7"};
    league->NameData[2][1] = {"an", "", ""};
    for (SkillRec& rec : league->SkillData[3]) rec.KickReturner = rec.PuntReturner = 0;
    const bool compact = round % 2 == 0;
    const std::string text =
        WriteLeagueJson(*league, compact ? JsonLayout::Compact : JsonLayout::Indented);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n') == 1, compact);
    TakeWhatIsNotInTheText(*league, *other);
    ASSERT_THAT(ErrorsOf(text, *other), IsEmpty()) << "round " << round;
    ASSERT_TRUE(*other == *league) << "round " << round;
  }
}

TEST(LeagueJson, WhatAnImageOfAnyBytesHoldsComesBackToo) {
  std::mt19937 random(2);
  const std::vector<std::uint8_t> sample = SampleBytes();
  std::vector<std::uint8_t> bytes = sample;
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  // A hundred names of thousands of letters are enough: the other pointers stay.
  std::copy(sample.begin() + 0x110, sample.begin() + 0x6DA, bytes.begin() + 0x110);
  // The longest text there can be, of a character that takes six in the JSON.
  std::fill_n(bytes.begin() + 0x10'000, 0x8'000, std::uint8_t{0x7F});
  OpenImage image(std::move(bytes));
  const auto league = std::make_unique<LeagueData>(ReadLeague(image));
  auto other = std::make_unique<LeagueData>();
  ASSERT_THAT(ErrorsOf(WriteLeagueJson(*league), *other), IsEmpty());
  EXPECT_TRUE(*other == *league);
}

TEST(LeagueJson, ControlCharactersAreEscaped) {
  LeagueData league;
  league.TeamData[1].City = std::string("\0\x1B\x7F\x08\n\"\\\xE9", 8);
  const std::string text = WriteLeagueJson(league);
  EXPECT_NE(text.find(R"("city": "\u0000\u001b\u007f\b\n\"\\é",)"), std::string::npos)
      << text.substr(0, 200);
}

TEST(LeagueJson, APartChangesThatPartAlone) {
  LeagueData expected = SampleLeague();
  EXPECT_TRUE(Applied("{}") == expected);
  EXPECT_TRUE(Applied(R"({"rosterYear": null, "teams": [null, {"index": 2, "players": null}],
                          "schedule": [null], "probowl": [null, [null, {"team": null}]]})") ==
              expected);

  expected.RosterYear = "95";
  expected.LeagueText[2] = "X\xE9Z";
  TeamRec& team = expected.TeamData[28];
  team.City = "NEW harbor";
  team.Abbreviation = "NH  ";
  team.TeamColors[2] = 255;
  expected.TeamPlays[28][1] = 9;
  expected.QBData[28][2].Accuracy = 15;
  expected.NameData[28][30] = {"", "P", "7F"};
  expected.KickData[28][2].Face = 255;
  expected.ProbowlData[2][3].Slot = 256;
  EXPECT_TRUE(Applied(R"({
    "rosterYear": "95", "leagueText": [null, "XéZ"],
    "teams": [{"players": [{"label": "P", "face": 255, "firstName": "", "lastName": "P",
                            "jerseyNumber": "7f", "slot": 30},
                           {"slot": 2, "group": "QB", "ratings": {"accuracy": 15}}],
               "colors": [null, 255], "plays": [9], "city": "NEW harbor", "abbreviation": "NH",
               "index": 28}],
    "probowl": [null, [null, null, {"slot": 256}]]})") == expected);
}

TEST(LeagueJson, AWeekThatIsGivenIsWhole) {
  LeagueData expected = SampleLeague();
  ASSERT_GT(expected.ScheduleData[1].GameCount, 2);
  expected.ScheduleData[1].GameCount = 2;
  expected.ScheduleData[1].Games[0] = {.HomeTeam = 29, .AwayTeam = 28};
  expected.ScheduleData[1].Games[1] = {.HomeTeam = 5, .AwayTeam = 5};
  expected.ScheduleData[2].GameCount = 0;
  EXPECT_TRUE(Applied(R"({"schedule": [null, [{"away": 28, "home": 29}, {"away": 5, "home": 5}],
                          []]})") == expected);
}

TEST(LeagueJson, ADutyGoesFromItsHolderToThePlayerWhoIsGivenIt) {
  LeagueData league = SampleLeague();
  const auto kickers = [&] {
    std::vector<int> slots;
    for (int index = 1; index <= 10; ++index) {
      if (league.SkillData[4][index].KickReturner != 0) slots.push_back(index + 2);
    }
    return slots;
  };
  const auto apply = [&](const std::string& players) {
    return ErrorsOf(R"({"teams": [{"index": 4, "players": [)" + players + "]}]}", league);
  };
  EXPECT_THAT(apply(R"({"slot": 9, "kickReturner": true})"), IsEmpty());
  EXPECT_THAT(kickers(), ElementsAre(9));
  EXPECT_THAT(apply(R"({"slot": 10, "kickReturner": true}, {"slot": 9, "kickReturner": false})"),
              IsEmpty());
  EXPECT_THAT(kickers(), ElementsAre(10));
  EXPECT_THAT(apply(R"({"slot": 10, "kickReturner": false})"), IsEmpty());
  EXPECT_THAT(kickers(), IsEmpty());
  EXPECT_THAT(apply(R"({"slot": 3, "kickReturner": true}, {"slot": 5, "puntReturner": true},
                       {"slot": 4, "kickReturner": true}, {"slot": 1, "kickReturner": true})"),
              ElementsAre("teams[0].players[2].kickReturner: only one player of a team can have it",
                          "teams[0].players[3].kickReturner: unknown key; the keys here are slot, "
                          "label, group, firstName, lastName, jerseyNumber, face, ratings"));
  EXPECT_THAT(kickers(), IsEmpty());
  const LeagueData before = SampleLeague();
  league.SkillData[4] = before.SkillData[4];
  EXPECT_TRUE(league == before) << "more has changed";
}

TEST(LeagueJson, ACutTextIsRefused) {
  const std::string dump = WriteLeagueJson(SampleLeague());
  for (std::size_t size = 0; size + 2 < dump.size(); size += 40'099) {
    EXPECT_THAT(ErrorsOf(std::string_view(dump).substr(0, size)), testing::SizeIs(1)) << size;
  }
}

TEST(LeagueJson, WhatExceedsAnyLeagueIsRefusedEarly) {
  EXPECT_THAT(ErrorsOf(std::string(1'000'000, '[')),
              ElementsAre("the text is nested deeper than any league"));
  std::string many = "[0";
  for (int count = 0; count < 100'000; ++count) many += ",0";
  EXPECT_THAT(ErrorsOf(many + "]"), ElementsAre("the text holds more values than any league"));
  std::string keys = R"({"teams": [{)";
  for (int key = 0; key < 101; ++key) keys += "\"" + std::to_string(key) + "\": 0,";
  EXPECT_THAT(ErrorsOf(keys),
              ElementsAre("the text has an object with more keys than any league's"));
  // Refused by its length, so nothing of it is read.
  EXPECT_THAT(ErrorsOf(std::string_view("{}", LargestLeagueJson + 1)),
              ElementsAre("the text is too large: it has 402,653,185 bytes, and the limit is "
                          "402,653,184 bytes"));
  const auto city = [](std::size_t length) {
    return R"({"teams": [{"index": 1, "city": ")" + std::string(length, 'A') + "\"}]}";
  };
  EXPECT_EQ(Applied(city(65'535)).TeamData[1].City.size(), 65'535u);
  EXPECT_THAT(ErrorsOf(city(65'536)),
              ElementsAre("teams[0].city: must have at most 65535 characters"));
}

}  // namespace
}  // namespace rostermill::test
