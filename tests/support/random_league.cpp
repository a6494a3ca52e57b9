#include "tests/support/random_league.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "league/player_names.h"
#include "league/team_data.h"

namespace rostermill::test {

namespace {

using Random = std::mt19937;

int Between(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

/// `length` random characters other than those from `first` to `last`.
std::string TextWithout(Random& random, int length, char first, char last) {
  std::string text;
  while (static_cast<int>(text.size()) < length) {
    const auto c = static_cast<char>(random());
    if (c < first || c > last) text += c;
  }
  return text;
}

template <typename Rec, typename... Fields>
void FillCodes(Random& random, Rec& rec, Fields... fields) {
  for (std::int16_t Rec::*field :
       {&Rec::RushingPower, &Rec::RunningSpeed, &Rec::MaximumSpeed, &Rec::HittingPower,
        static_cast<std::int16_t Rec::*>(fields)...}) {
    rec.*field = static_cast<std::int16_t>(Between(random, 0, 15));
  }
  rec.Face = static_cast<std::int16_t>(Between(random, 0, 255));
}

void FillPlayers(Random& random, LeagueData& league, int team) {
  for (QBRec& rec : league.QBData[team]) {
    FillCodes(random, rec, &QBRec::PassingSpeed, &QBRec::PassControl, &QBRec::Accuracy,
              &QBRec::AvoidPassBlock);
  }
  auto& skill = league.SkillData[team];
  for (SkillRec& rec : skill) {
    FillCodes(random, rec, &SkillRec::BallControl, &SkillRec::Receptions);
  }
  skill[Between(random, 1, 10)].KickReturner = 1;
  skill[Between(random, 1, 10)].PuntReturner = 1;
  for (LineRec& rec : league.LineData[team]) FillCodes(random, rec);
  for (DefenseRec& rec : league.DefenseData[team]) {
    FillCodes(random, rec, &DefenseRec::PassInterception, &DefenseRec::Quickness);
  }
  for (KickRec& rec : league.KickData[team]) {
    FillCodes(random, rec, &KickRec::KickingAbility, &KickRec::AvoidKickBlock);
  }
}

void FillNames(Random& random, LeagueData& league) {
  int room = NameDataCapacity - NameBytesNeeded(league);
  const auto take = [&](int longest) {
    const int length = std::min(Between(random, 0, longest), room);
    room -= length;
    return length;
  };
  for (auto& team : league.NameData) {
    for (NameRec& name : team) {
      name.JerseyNumber = HexByteText(Between(random, 0, 255));
      const int length = take(14);
      if (length == 0) continue;
      const int first = Between(random, 0, length - 1);
      name.FirstName = TextWithout(random, first, 'A', 'Z');
      // Two statements, since compilers differ in which operand of + they evaluate first.
      name.LastName = static_cast<char>(Between(random, 'A', 'Z'));
      name.LastName += TextWithout(random, length - first - 1, 'a', 'z');
    }
  }
  // One league in four uses the room to the last byte.
  NameRec& last = league.NameData[TeamCount][SlotCount];
  if (random() % 4 == 0 && !last.LastName.empty())
    last.LastName.append(static_cast<std::size_t>(room), 'Z');
}

void FillTeam(Random& random, LeagueData& league, int team) {
  TeamRec& rec = league.TeamData[team];
  rec.City = TextWithout(random, Between(random, 0, 10), 'a', 'z');
  rec.Nickname = TextWithout(random, Between(random, 0, 10), 'a', 'z');
  rec.Abbreviation = TextWithout(random, AbbreviationLength, 'a', 'z');
  rec.Formation = static_cast<std::uint8_t>(Between(random, 0, 2));
  for (auto& color : rec.TeamColors) color = static_cast<std::int16_t>(Between(random, 0, 255));
  for (auto& color : rec.DivChampColors) color = static_cast<std::uint8_t>(random());
  for (auto& color : rec.ConfChampColors) color = static_cast<std::uint8_t>(random());
  for (auto& play : league.TeamPlays[team]) play = static_cast<std::int16_t>(Between(random, 0, 9));
}

void FillSeason(Random& random, LeagueData& league) {
  for (ScheduleWeek& week : league.ScheduleData) {
    week.GameCount = static_cast<std::uint8_t>(Between(random, 0, GamesPerWeek));
    for (int game = 0; game < week.GameCount; ++game) {
      week.Games[game] = {static_cast<std::int16_t>(Between(random, 0, 29)),
                          static_cast<std::int16_t>(Between(random, 0, 29))};
    }
  }
  for (auto& conference : league.ProbowlData) {
    for (ProbowlRec& place : conference) {
      place = {static_cast<std::int16_t>(Between(random, 1, 256)),
               static_cast<std::int16_t>(Between(random, 1, 256))};
    }
  }
}

}  // namespace

LeagueData RandomLeague(Random& random) {
  LeagueData league;
  for (int team = 1; team <= TeamCount; ++team) {
    FillPlayers(random, league, team);
    FillTeam(random, league, team);
  }
  FillNames(random, league);
  FillSeason(random, league);
  league.RosterYear = TextWithout(random, 4, 'a', 'z');
  for (auto& text : league.LeagueText) text = TextWithout(random, 3, 'a', 'z');
  return league;
}

int LeagueTotal(int usual) {
  const char* text = std::getenv("ROSTERMILL_LEAGUES");
  const int total = text != nullptr ? std::atoi(text) : usual;
  EXPECT_GE(total, 1) << "ROSTERMILL_LEAGUES=" << (text != nullptr ? text : "");
  return total;
}

}  // namespace rostermill::test
