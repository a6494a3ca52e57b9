#pragma once

#include <cstdint>
#include <string>

#include "league/indexed_array.h"
#include "league/text.h"

namespace rostermill {

/// Teams are counted from 1 in the fixed order of the cartridge: 1 to 5 AFC East, 6 to 9 AFC
/// Central, 10 to 14 AFC West, 15 to 19 NFC East, 20 to 24 NFC Central, 25 to 28 NFC West.
inline constexpr int TeamCount = 28;
/// A player's fixed place on a team, 1 ("QB 1") to 30 ("P").
inline constexpr int SlotCount = 30;
inline constexpr int WeekCount = 17;
inline constexpr int GamesPerWeek = 14;
inline constexpr int PaletteSize = 64;

template <typename T>
using ByTeam = IndexedArray<T, 1, TeamCount>;
template <typename T>
using BySlot = IndexedArray<T, 1, SlotCount>;

// Player records. Every field is a rating code, 0 to 15 (see RatingValues), except Face, the
// number of the photo, 0 to 255, and the two returner flags, 0 or 1.

struct QBRec {
  std::int16_t RushingPower = 0, RunningSpeed = 0, MaximumSpeed = 0, HittingPower = 0, Face = 0;
  std::int16_t PassingSpeed = 0, PassControl = 0, Accuracy = 0, AvoidPassBlock = 0;
  bool operator==(const QBRec&) const = default;
};

struct SkillRec {
  std::int16_t RushingPower = 0, RunningSpeed = 0, MaximumSpeed = 0, HittingPower = 0, Face = 0;
  std::int16_t BallControl = 0, Receptions = 0;
  /// At most one record of a team has each flag set.
  std::int16_t KickReturner = 0, PuntReturner = 0;
  bool operator==(const SkillRec&) const = default;
};

struct LineRec {
  std::int16_t RushingPower = 0, RunningSpeed = 0, MaximumSpeed = 0, HittingPower = 0, Face = 0;
  bool operator==(const LineRec&) const = default;
};

struct DefenseRec {
  std::int16_t RushingPower = 0, RunningSpeed = 0, MaximumSpeed = 0, HittingPower = 0, Face = 0;
  std::int16_t PassInterception = 0, Quickness = 0;
  bool operator==(const DefenseRec&) const = default;
};

struct KickRec {
  std::int16_t RushingPower = 0, RunningSpeed = 0, MaximumSpeed = 0, HittingPower = 0, Face = 0;
  std::int16_t KickingAbility = 0, AvoidKickBlock = 0;
  bool operator==(const KickRec&) const = default;
};

struct NameRec {
  std::string FirstName;  ///< lower case on the cartridge
  std::string LastName;   ///< from the first capital to the end
  /// The uniform number as text: two upper-case hexadecimal digits of its byte after a load,
  /// plain decimal, perhaps one digit, after the editor has stepped it.
  std::string JerseyNumber;
  bool operator==(const NameRec&) const = default;
};

struct TeamRec {
  std::string City;            ///< upper case
  std::string Nickname;        ///< upper case
  std::string Abbreviation;    ///< 4 characters in the image
  std::uint8_t Formation = 0;  ///< 0 "2RB 2WR 1TE", 1 "1RB 4WR", 2 "1RB 3WR 1TE"
  /// Palette indices: color 1, skin, color 3 of the first uniform, then of the second.
  IndexedArray<std::int16_t, 1, 6> TeamColors;
  IndexedArray<std::uint8_t, 1, 5> DivChampColors;   ///< 1 to 3 jersey, 4 and 5 helmet
  IndexedArray<std::uint8_t, 1, 4> ConfChampColors;  ///< 1 helmet, 2 to 4 jersey
  bool operator==(const TeamRec&) const = default;
};

struct PaletteRec {
  std::string Name;                           ///< UTF-8
  std::int16_t Red = 0, Green = 0, Blue = 0;  ///< 0 to 255
  bool operator==(const PaletteRec&) const = default;
};

/// A place of an all-star roster: the league player who fills it. Values outside 1 to TeamCount
/// and 1 to SlotCount name nobody and are carried through unchanged.
struct ProbowlRec {
  std::int16_t Team = 0;
  std::int16_t Slot = 0;
  bool operator==(const ProbowlRec&) const = default;
};

/// The teams of one game, counted from 0: team number n is TeamData[n + 1]. The numbers 28 and
/// 29 mean the two all-star sides.
struct GamePlace {
  std::int16_t HomeTeam = 0;
  std::int16_t AwayTeam = 0;
  bool operator==(const GamePlace&) const = default;
};

struct ScheduleWeek {
  IndexedArray<GamePlace, 0, GamesPerWeek - 1> Games;
  std::uint8_t GameCount = 0;  ///< places in use, from the first; the others are stale
  bool operator==(const ScheduleWeek&) const = default;
};

/// Everything that is read from a cartridge image, and the palette beside the program. A plain
/// value: a load fills a fresh one, a save takes one by const reference.
struct LeagueData {
  ByTeam<IndexedArray<QBRec, 1, 2>> QBData;
  ByTeam<IndexedArray<SkillRec, 1, 10>> SkillData;
  ByTeam<IndexedArray<LineRec, 1, 5>> LineData;
  ByTeam<IndexedArray<DefenseRec, 1, 11>> DefenseData;
  ByTeam<IndexedArray<KickRec, 1, 2>> KickData;
  ByTeam<BySlot<NameRec>> NameData;
  ByTeam<TeamRec> TeamData;
  IndexedArray<PaletteRec, 0, PaletteSize - 1> PaletteData;
  /// A team's choice, 0 to 7, for each playbook slot; 1 to 4 are runs, 5 to 8 passes.
  ByTeam<IndexedArray<std::int16_t, 1, 8>> TeamPlays;
  /// The all-star rosters: conference 1 is the AFC side, 2 the NFC side.
  IndexedArray<BySlot<ProbowlRec>, 1, 2> ProbowlData;
  IndexedArray<ScheduleWeek, 0, WeekCount - 1> ScheduleData;
  FixedText<4> RosterYear;
  IndexedArray<FixedText<3>, 1, 3> LeagueText;
  bool operator==(const LeagueData&) const = default;
};

/// Empties the texts of all teams and players; numbers stay as they are.
void EmptyLeagueTexts(LeagueData& league);

}  // namespace rostermill
