#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "league/load_image.h"
#include "tests/league/image_bytes.h"

namespace rostermill::test {
namespace {

struct Place {
  int Offset;
  Bytes Values;
};

/// What a load makes of a few bytes of a saved image.
struct Field {
  Place Read;
  std::function<void(LeagueData&)> Set;  ///< the only change to the league
  std::vector<Place> Written{};          ///< what a save writes beside or instead of the bytes read
};

Field Returners(int team, Place read, int kick, int punt, const std::vector<Place>& written) {
  const auto set = [=](LeagueData& league) {
    auto& skill = league.SkillData[team];
    for (int at = skill.first; at <= skill.last; ++at) {
      skill[at].KickReturner = at == kick ? 1 : 0;
      skill[at].PuntReturner = at == punt ? 1 : 0;
    }
  };
  return {std::move(read), set, written};
}

/// The second table has no skin.
Field UniformColors(int team, int offset, int second_offset) {
  const auto set = [team](LeagueData& league) {
    league.TeamData[team].TeamColors = {{61, 62, 63, 64, 65, 255}};
  };
  return {{offset, {61, 62, 63, 64, 65, 255}}, set, {{second_offset, {61, 63, 64, 255}}}};
}

GamePlace& LastGame(LeagueData& league) {
  ScheduleWeek& week = league.ScheduleData[16];
  return week.Games[week.GameCount - 1];
}

const std::vector<Field> fields{
    // Players: the first and the last of each group, of a block and of all blocks.
    {{0x3010, {0x12, 0x34, 0xC8, 0x56, 0x78}},
     [](auto& l) { l.QBData[1][1] = {1, 2, 3, 4, 200, 5, 6, 7, 8}; }},
    {{0x3015, {0x12, 0x34, 0xC8, 0x56, 0x78}},
     [](auto& l) { l.QBData[1][2] = {1, 2, 3, 4, 200, 5, 6, 7, 8}; }},
    {{0x301A, {0x12, 0x34, 0xFF, 0x56}},
     [](auto& l) { l.SkillData[1][1] = {1, 2, 3, 4, 255, 5, 6}; }},
    {{0x303E, {0xFE, 0xDC, 0x80, 0xBA}},
     [](auto& l) { l.SkillData[1][10] = {15, 14, 13, 12, 128, 11, 10}; }},
    {{0x3042, {0x9F, 0x34, 0x80}},
     [](auto& l) {
       l.LineData[1][1] = {9, 15, 3, 4, 128};
     }},
    {{0x304E, {0x12, 0x34, 0x7F}},
     [](auto& l) {
       l.LineData[1][5] = {1, 2, 3, 4, 127};
     }},
    {{0x3051, {0x12, 0x34, 0x81, 0x6E}},
     [](auto& l) { l.DefenseData[1][1] = {1, 2, 3, 4, 129, 6, 14}; }},
    {{0x3079, {0x12, 0x34, 0x81, 0x6E}},
     [](auto& l) { l.DefenseData[1][11] = {1, 2, 3, 4, 129, 6, 14}; }},
    {{0x307D, {0x2B, 0x34, 0xFE, 0x56}},
     [](auto& l) { l.KickData[1][1] = {2, 11, 3, 4, 254, 5, 6}; }},
    {{0x3081, {0x12, 0x34, 0x55, 0xD3}},
     [](auto& l) { l.KickData[1][2] = {1, 2, 3, 4, 85, 13, 3}; }},
    {{0x3085, {0xA1}},
     [](auto& l) { l.QBData[2][1].RushingPower = 10, l.QBData[2][1].RunningSpeed = 1; }},
    {{0x3CDB, {0x49}},
     [](auto& l) { l.KickData[28][2].KickingAbility = 4, l.KickData[28][2].AvoidKickBlock = 9; }},
    {{0x6DA, {0xA5}}, [](auto& l) { l.NameData[1][1].JerseyNumber = "A5"; }},

    // Returners count from "RB 1", 2, to "TE 2", 11; others are nobody, and a save names "RB 1".
    Returners(1, {0x239D3, {0xB2}}, 10, 1, {{0x328D3, {0xB2}}}),
    Returners(28, {0x239EE, {0x47}}, 3, 6, {{0x328EE, {0x47}}}),
    Returners(1, {0x239D3, {0x1C}}, 0, 0, {{0x239D3, {0x22}}, {0x328D3, {0x22}}}),
    Returners(1, {0x239D3, {0xC1}}, 0, 0, {{0x239D3, {0x22}}, {0x328D3, {0x22}}}),
    Returners(1, {0x239D3, {0xF0}}, 0, 0, {{0x239D3, {0x22}}, {0x328D3, {0x22}}}),

    // Teams
    {{0x1FD7C, {'B'}}, [](auto& l) { l.TeamData[1].City = "BARBORTON"; }},
    {{0x1FD00, {'<', '.', ' ', 0xE9}}, [](auto& l) { l.TeamData[1].Abbreviation = "<. \xE9"; }},
    {{0x1FD6C, {'Z', '4', 'a', ' '}}, [](auto& l) { l.TeamData[28].Abbreviation = "Z4a "; }},
    {{0x21FE0, {1}}, [](auto& l) { l.TeamData[1].Formation = 1; }, {{0x31E80, {1}}}},
    {{0x21FFB, {2}}, [](auto& l) { l.TeamData[28].Formation = 2; }, {{0x31E9B, {2}}}},
    {{0x21FFB, {3}},
     [](auto& l) { l.TeamData[28].Formation = 0; },
     {{0x21FFB, {0}}, {0x31E9B, {0}}}},

    // Colors: the row of team 11 is after the others.
    UniformColors(1, 0x2C2E4, 0x342D8),
    UniformColors(10, 0x2C33E, 0x34320),
    UniformColors(11, 0x2C410, 0x34328),
    UniformColors(12, 0x2C352, 0x34330),
    UniformColors(28, 0x2C3F2, 0x343B0),
    {{0x343E8, {61, 62, 63, 64, 255}},
     [](auto& l) {
       l.TeamData[1].DivChampColors = {{61, 62, 63, 64, 255}};
     }},
    {{0x3446F, {61, 62, 63, 64, 65}},
     [](auto& l) {
       l.TeamData[28].DivChampColors = {{61, 62, 63, 64, 65}};
     }},
    {{0x34494, {61, 62, 63, 255}},
     [](auto& l) {
       l.TeamData[1].ConfChampColors = {{61, 62, 63, 255}};
     }},
    {{0x34500, {61, 62, 63, 64}},
     [](auto& l) {
       l.TeamData[28].ConfChampColors = {{61, 62, 63, 64}};
     }},

    // Playbooks: 8 and 9 have no name and are kept, what is above is read as 0.
    {{0x1D310, {0x12, 0x34, 0x56, 0x70}},
     [](auto& l) {
       l.TeamPlays[1] = {{1, 2, 3, 4, 5, 6, 7, 0}};
     }},
    {{0x1D37C, {0x01, 0x23, 0x45, 0x67}},
     [](auto& l) {
       l.TeamPlays[28] = {{0, 1, 2, 3, 4, 5, 6, 7}};
     }},
    {{0x1D314, {0xA3, 0x3F, 0x89, 0x9A}},
     [](auto& l) {
       l.TeamPlays[2] = {{0, 3, 3, 0, 8, 9, 9, 0}};
     },
     {{0x1D314, {0x03, 0x30, 0x89, 0x90}}}},

    // All-stars, counted from 0 in the image; any byte is kept.
    {{0x32853, {5, 17}},
     [](auto& l) {
       l.ProbowlData[1][1] = {6, 18};
     }},
    {{0x3288D, {255, 254}},
     [](auto& l) {
       l.ProbowlData[1][30] = {256, 255};
     }},
    {{0x3288F, {14, 1}},
     [](auto& l) {
       l.ProbowlData[2][1] = {15, 2};
     }},
    {{0x328C9, {26, 28}},
     [](auto& l) {
       l.ProbowlData[2][30] = {27, 29};
     }},

    // Games: the visitors first. Counts above 14 and teams above 29 come into range.
    {{0x329DB, {28, 29}},
     [](auto& l) { l.ScheduleData[0].Games[0] = {.HomeTeam = 29, .AwayTeam = 28}; }},
    {{0x32B99, {5, 5}}, [](auto& l) { LastGame(l) = {.HomeTeam = 5, .AwayTeam = 5}; }},
    {{0x329DB, {30, 255}}, [](auto& l) { l.ScheduleData[0].Games[0] = {}; }, {{0x329DB, {0, 0}}}},
    {{0x329C9, {15}}, [](auto&) {}, {{0x329C9, {14}}}},
    {{0x329C9, {255}}, [](auto&) {}, {{0x329C9, {14}}}},
};

// Catches a field in its neighbor's place, swapped nibbles, a copy that is read or not written, and
// a value that is clamped or cut on its way.
TEST(Fields, EachIsReadFromItsOwnBytesAndWrittenToThemAlone) {
  const LeagueData sample = SampleLeague();
  const Bytes image = SavedBytes(sample);
  for (const Field& field : fields) {
    SCOPED_TRACE(testing::Message() << "offset " << std::hex << field.Read.Offset);
    LeagueData league = sample;
    field.Set(league);
    Bytes bytes = image;
    Put(bytes, field.Read.Offset, field.Read.Values);
    EXPECT_NE(DifferingOffsets(bytes, image).size(), 0u) << "the sample has these values";
    OpenImage changed(bytes);
    EXPECT_TRUE(ReadLeague(changed) == league);

    for (const Place& place : field.Written) Put(bytes, place.Offset, place.Values);
    OpenImage saved(image);
    WriteLeague(saved, league, [] {});
    EXPECT_THAT(DifferingOffsets(BytesOf(saved), bytes), testing::IsEmpty());
  }
}

}  // namespace
}  // namespace rostermill::test
