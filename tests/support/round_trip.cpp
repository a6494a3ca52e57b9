#include "tests/support/round_trip.h"

#include <algorithm>
#include <array>

#include "league/load_image.h"
#include "league/player_names.h"
#include "league/save_image.h"
#include "league/team_data.h"

namespace rostermill::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Range {
  int first;
  int size;
};

/// The ranges that every save writes, except those that ForEachSavedRange computes.
constexpr std::array fixed_ranges{
    Range{0x00048, 1682}, Range{0x03010, 3277}, Range{0x16DA6, 7},   Range{0x16DB6, 8},
    Range{0x16DC7, 1},    Range{0x16DCB, 1},    Range{0x1D310, 112}, Range{0x1FC50, 176},
    Range{0x1FD00, 120},  Range{0x21642, 10},   Range{0x21FE0, 28},  Range{0x239D3, 28},
    Range{0x30FF8, 18},   Range{0x31E80, 28},   Range{0x32853, 120}, Range{0x328D3, 28},
    Range{0x329A7, 52},   Range{0x343E8, 140},  Range{0x34494, 112}, Range{0x2C410, 6},
};
constexpr std::array year_places{0x0C129, 0x0C4E4, 0x1E128, 0x1E28A, 0x1E2BD, 0x1F89B};
constexpr std::array text_places{
    0x0C3AF, 0x0E1FA, 0x1E12D, 0x1E2C2, 0x1E2EB, 0x1E309, 0x1E377, 0x1E5F9, 0x1E62C, 0x1F2D7,
    0x1F2FB, 0x1F8A1, 0x0CDEA, 0x0E1FF, 0x0EFEB, 0x1E271, 0x1E557, 0x1E5FE, 0x1E631, 0x1E714,
    0x1E744, 0x1E8EA, 0x1E91C, 0x1EFE6, 0x1F2E0, 0x1F304, 0x0D891, 0x0E204, 0x0EFF6, 0x1E27E,
    0x1E57C, 0x1E603, 0x1E636, 0x1E7EF, 0x1E815, 0x1E8F3, 0x1E936, 0x1EFEF, 0x1F2E9, 0x1F30D};

/// The league with the changes that a save makes by design: letters take the case of their field,
/// an empty number becomes "00", and a team without a returner gets its first back.
LeagueData AsSaved(LeagueData league) {
  for (auto& team : league.NameData) {
    for (NameRec& name : team) {
      name.FirstName = LowerText(name.FirstName);
      name.LastName = UpperText(name.LastName);
      if (name.JerseyNumber.empty()) name.JerseyNumber = "00";
    }
  }
  for (TeamRec& team : league.TeamData) {
    team.City = UpperText(team.City);
    team.Nickname = UpperText(team.Nickname);
  }
  for (auto& team : league.SkillData) {
    const auto ensure = [&team](std::int16_t SkillRec::*flag) {
      if (std::none_of(team.begin(), team.end(), [flag](auto& rec) { return rec.*flag != 0; })) {
        team[1].*flag = 1;
      }
    };
    ensure(&SkillRec::KickReturner);
    ensure(&SkillRec::PuntReturner);
  }
  league.PaletteData = {};
  return league;
}

/// The first table in which two leagues differ.
std::string DifferingTable(const LeagueData& a, const LeagueData& b) {
  if (a.NameData != b.NameData) return "NameData";
  if (a.TeamData != b.TeamData) return "TeamData";
  if (a.SkillData != b.SkillData) return "SkillData";
  if (a.ScheduleData != b.ScheduleData) return "ScheduleData";
  if (a.ProbowlData != b.ProbowlData) return "ProbowlData";
  if (a.TeamPlays != b.TeamPlays) return "TeamPlays";
  return "another table";
}

Bytes Written(const Bytes& image, const LeagueData& league) {
  OpenImage open(image);
  WriteLeague(open, league, [] {});
  return {open.Bytes().begin(), open.Bytes().end()};
}

/// Calls `each` with every range that a save of the league may write.
template <typename Each>
void ForEachSavedRange(const LeagueData& league, Each each) {
  for (const Range& range : fixed_ranges) each(range.first, range.size);
  for (const int place : year_places) each(place, 4);
  for (const int place : text_places) each(place, 3);
  for (int team = 0; team < TeamCount; ++team) {
    // The eleventh team's row of the first color table is elsewhere.
    if (team != 10) each(0x2C2E4 + 10 * team, 6);
    each(0x342D8 + 8 * team, 4);
  }
  each(0x006DA, std::min(NameBytesNeeded(league) + 1, 10'550));
  each(0x1FD7C, TeamTextBytesNeeded(league));
  int games = 0;
  for (const ScheduleWeek& week : league.ScheduleData) games += week.GameCount;
  each(0x329DB, 2 * games);
}

}  // namespace

std::optional<std::string> SaveFault(const Bytes& image, const LeagueData& league) {
  const Bytes saved = Written(image, league);
  OpenImage open(saved);
  const LeagueData again = ReadLeague(open);
  const LeagueData expected = AsSaved(league);
  if (again != expected) {
    return "the saved image loads to a different league: " + DifferingTable(again, expected);
  }
  if (Written(saved, again) != saved) return "a second save changes a byte";
  Bytes outside = saved;
  ForEachSavedRange(league, [&](int first, int size) {
    std::copy_n(image.begin() + first, size, outside.begin() + first);
  });
  const auto changed = std::mismatch(outside.begin(), outside.end(), image.begin()).first;
  if (changed != outside.end()) {
    return "a byte outside the sections has changed: " + std::to_string(changed - outside.begin());
  }
  return std::nullopt;
}

std::optional<std::string> RoundTripFault(const Bytes& image) {
  OpenImage open(image);
  const LeagueData league = ReadLeague(open);
  if (TextOverflow(league)) return std::nullopt;
  return SaveFault(image, league);
}

}  // namespace rostermill::test
