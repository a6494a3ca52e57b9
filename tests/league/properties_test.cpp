#include <gtest/gtest.h>

#include "league/save_image.h"
#include "tests/support/damage.h"
#include "tests/support/random_league.h"
#include "tests/support/round_trip.h"

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Properties, AnyLeagueSurvivesASaveOverAnyImage) {
  const int total = LeagueTotal(2000);
  for (int seed = 1; seed <= total; ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Bytes image = SampleBytes();
    if (seed % 2 == 0) {
      for (auto& byte : image) byte = static_cast<std::uint8_t>(random());
    }
    const LeagueData league = RandomLeague(random);
    ASSERT_EQ(TextOverflow(league), std::nullopt) << "seed " << seed;
    ASSERT_EQ(SaveFault(image, league), std::nullopt) << "seed " << seed;
  }
}

TEST(Properties, WhateverADamagedImageHoldsSurvivesASave) {
  const int total = LeagueTotal(1000);
  int saved = 0;
  for (int seed = 1; seed <= total; ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    Bytes image = SampleBytes();
    for (int hit = 0; hit < 30; ++hit) {
      // Half of the hits go to the names, teams and season, not to the graphics around them.
      const unsigned end = hit % 2 == 0 ? 0x3CDC : OpenImage::WholeSize;
      image[random() % end] = static_cast<std::uint8_t>(random());
    }
    ASSERT_EQ(RoundTripFault(image), std::nullopt) << "seed " << seed;
    OpenImage open(image);
    if (!TextOverflow(ReadLeague(open))) ++saved;
  }
  EXPECT_GE(saved, total / 2);
}

/// A change of one field and the bytes that it may change.
struct FieldChange {
  const char* name;
  void (*change)(LeagueData&, int team, unsigned value);
  std::vector<int> (*bytes)(int team);
};

std::vector<int> Run(int first, int size) {
  std::vector<int> offsets;
  for (int at = first; at < first + size; ++at) offsets.push_back(at);
  return offsets;
}

std::int16_t Code(unsigned value) {
  return static_cast<std::int16_t>(value % 16);
}

const std::vector<FieldChange> field_changes{
    {"accuracy of QB 2",
     [](LeagueData& l, int t, unsigned v) { l.QBData[t][2].Accuracy = Code(v); },
     [](int t) { return Run(0x3010 + 117 * (t - 1) + 9, 1); }},
    {"face of TE 2",
     [](LeagueData& l, int t, unsigned v) {
       l.SkillData[t][10].Face = static_cast<std::int16_t>(v % 256);
     },
     [](int t) { return Run(0x3010 + 117 * (t - 1) + 48, 1); }},
    {"rushing power of RT",
     [](LeagueData& l, int t, unsigned v) { l.LineData[t][5].RushingPower = Code(v); },
     [](int t) { return Run(0x3010 + 117 * (t - 1) + 62, 1); }},
    {"quickness of the last defender",
     [](LeagueData& l, int t, unsigned v) { l.DefenseData[t][11].Quickness = Code(v); },
     [](int t) { return Run(0x3010 + 117 * (t - 1) + 108, 1); }},
    {"kicking ability of P",
     [](LeagueData& l, int t, unsigned v) { l.KickData[t][2].KickingAbility = Code(v); },
     [](int t) { return Run(0x3010 + 117 * (t - 1) + 116, 1); }},
    {"kick returner",
     [](LeagueData& l, int t, unsigned v) {
       for (SkillRec& rec : l.SkillData[t]) rec.KickReturner = 0;
       l.SkillData[t][1 + static_cast<int>(v % 10)].KickReturner = 1;
     },
     [](int t) {
       return std::vector{0x239D3 + t - 1, 0x328D3 + t - 1};
     }},
    {"formation",
     [](LeagueData& l, int t, unsigned v) {
       l.TeamData[t].Formation = static_cast<std::uint8_t>(v % 3);
     },
     [](int t) {
       return std::vector{0x21FE0 + t - 1, 0x31E80 + t - 1};
     }},
    {"abbreviation",
     [](LeagueData& l, int t, unsigned v) { l.TeamData[t].Abbreviation = v % 2 ? "AB.C" : "X"; },
     [](int t) { return Run(0x1FD00 + 4 * (t - 1), 4); }},
    {"city",
     [](LeagueData& l, int t, unsigned v) {
       for (char& letter : l.TeamData[t].City) letter = static_cast<char>('A' + v % 26);
     },
     [](int) { return Run(0x1FD7C, 660); }},
    {"hosts of a week's first game",
     [](LeagueData& l, int t, unsigned v) {
       l.ScheduleData[t % WeekCount].Games[0].HomeTeam = static_cast<std::int16_t>(v % 30);
     },
     [](int) { return Run(0x329DB, 2 * 14 * 17); }},
    {"first jersey color",
     [](LeagueData& l, int t, unsigned v) {
       l.TeamData[t].TeamColors[1] = static_cast<std::int16_t>(v % 64);
     },
     [](int t) {
       return std::vector{t == 11 ? 0x2C410 : 0x2C2E4 + 10 * (t - 1), 0x342D8 + 8 * (t - 1)};
     }},
    {"skin of the second uniform",
     [](LeagueData& l, int t, unsigned v) {
       l.TeamData[t].TeamColors[5] = static_cast<std::int16_t>(v % 64);
     },
     [](int t) { return Run((t == 11 ? 0x2C410 : 0x2C2E4 + 10 * (t - 1)) + 4, 1); }},
    {"helmet of the conference champion",
     [](LeagueData& l, int t, unsigned v) {
       l.TeamData[t].ConfChampColors[1] = static_cast<std::uint8_t>(v % 64);
     },
     [](int t) { return Run(0x34494 + 4 * (t - 1), 1); }},
    {"play of slot 6",
     [](LeagueData& l, int t, unsigned v) { l.TeamPlays[t][6] = static_cast<std::int16_t>(v % 8); },
     [](int t) { return Run(0x1D310 + 4 * (t - 1) + 2, 1); }},
    {"all-star place",
     [](LeagueData& l, int t, unsigned v) {
       l.ProbowlData[2][t].Slot = static_cast<std::int16_t>(1 + v % 30);
     },
     [](int t) { return Run(0x32853 + 60 + 2 * (t - 1) + 1, 1); }},
    {"uniform number",
     [](LeagueData& l, int t, unsigned v) {
       l.NameData[t][1].JerseyNumber = HexByteText(static_cast<int>(v % 256));
     },
     [](int) { return Run(0x006DA, 10'550); }},
    {"year", [](LeagueData& l, int, unsigned v) { l.RosterYear = std::to_string(1000 + v % 9000); },
     [](int) {
       std::vector<int> offsets = Run(0x16DA6, 7);
       for (const int first : {0x0C129, 0x0C4E4, 0x1E128, 0x1E28A, 0x1E2BD, 0x1F89B}) {
         for (const int at : Run(first, 4)) offsets.push_back(at);
       }
       for (const int at : Run(0x16DB6, 8)) offsets.push_back(at);
       offsets.insert(offsets.end(), {0x16DC7, 0x16DCB});
       return offsets;
     }},
};

TEST(Properties, AChangeOfOneFieldChangesItsOwnBytesOnly) {
  const int total = LeagueTotal(1000);
  int changed = 0;
  for (int seed = 1; seed <= total; ++seed) {
    std::mt19937 random(static_cast<unsigned>(seed));
    LeagueData league = RandomLeague(random);
    const Bytes before = SavedBytes(league);
    const FieldChange& field = field_changes[static_cast<std::size_t>(seed) % field_changes.size()];
    const int team = 1 + static_cast<int>(random() % TeamCount);
    field.change(league, team, static_cast<unsigned>(random()));
    const auto allowed = field.bytes(team);
    const auto moved = DifferingOffsets(before, SavedBytes(league));
    if (!moved.empty()) ++changed;
    for (const int offset : moved) {
      ASSERT_NE(std::find(allowed.begin(), allowed.end(), offset), allowed.end())
          << field.name << " of team " << team << " changes byte " << std::hex << offset << std::dec
          << ", seed " << seed;
    }
  }
  // The random value may be the old one.
  EXPECT_GE(changed, total * 3 / 4);
}

}  // namespace
}  // namespace rostermill::test
