#include "league/schedule.h"

#include <algorithm>

namespace rostermill {

namespace {

constexpr int pointers_offset = 0x329A7;
constexpr int counts_offset = 0x329C9;
constexpr int counts_end_offset = counts_offset + WeekCount;
constexpr int counts_end = 0xFF;
constexpr int games_offset = counts_end_offset + 1;
constexpr int address_to_offset = 0x2A010;
constexpr int game_size = 2;
/// 28 and 29 mean the all-star sides, which follow the teams in the abbreviation table.
constexpr int last_team_number = 29;

std::int16_t TeamNumber(std::uint8_t byte) {
  return static_cast<std::int16_t>(byte > last_team_number ? 0 : byte);
}

void FindNumberOddities(OpenImage& image, const std::string& week, int offset, int count,
                        Oddities& found) {
  for (int at = 0; at < game_size * count; ++at) {
    const std::uint8_t number = image.ReadByteAt(offset + at);
    if (number == TeamNumber(number)) continue;
    found.push_back({"schedule", 0, 0,
                     week + ", game " + std::to_string(at / game_size + 1) +
                         (at % game_size == 0 ? ": visiting" : ": home") + " team number " +
                         std::to_string(number) + " is read as 0"});
  }
}

/// A team against itself is one game that is odd, not two.
void FindTeamsTwice(const ScheduleWeek& week, const std::string& name, Oddities& found) {
  IndexedArray<int, 0, last_team_number> games;
  const auto tell = [&](int number, const std::string& what) {
    if (number < TeamCount) found.push_back({"schedule", number + 1, 0, name + " has it " + what});
  };
  for (int game = 0; game < week.GameCount; ++game) {
    const GamePlace& place = week.Games[game];
    ++games[place.AwayTeam];
    if (place.HomeTeam == place.AwayTeam) {
      tell(place.HomeTeam, "against itself");
    } else {
      ++games[place.HomeTeam];
    }
  }
  for (int number = 0; number < TeamCount; ++number) {
    if (games[number] >= 2) tell(number, std::to_string(games[number]) + " times");
  }
}

}  // namespace

void ReadSchedule(OpenImage& image, LeagueData& league) {
  for (int w = 0; w < WeekCount; ++w) {
    ScheduleWeek& week = league.ScheduleData[w];
    int offset = image.ReadWordAt(pointers_offset + 2 * w) + address_to_offset;
    week.GameCount =
        static_cast<std::uint8_t>(std::min<int>(image.ReadByteAt(counts_offset + w), GamesPerWeek));
    for (int game = 0; game < week.GameCount; ++game) {
      week.Games[game].AwayTeam = TeamNumber(image.ReadByteAt(offset));
      week.Games[game].HomeTeam = TeamNumber(image.ReadByteAt(offset + 1));
      offset += game_size;
    }
  }
}

void WriteSchedule(OpenImage& image, const LeagueData& league) {
  int offset = games_offset;
  for (int w = 0; w < WeekCount; ++w) {
    const ScheduleWeek& week = league.ScheduleData[w];
    image.WriteWordAt(pointers_offset + 2 * w, offset - address_to_offset);
    image.WriteByteAt(counts_offset + w, week.GameCount);
    for (int game = 0; game < week.GameCount; ++game) {
      image.WriteByteAt(offset, week.Games[game].AwayTeam);
      image.WriteByteAt(offset + 1, week.Games[game].HomeTeam);
      offset += game_size;
    }
  }
  image.WriteByteAt(counts_end_offset, counts_end);
}

void FindScheduleOddities(OpenImage& image, const LeagueData& league, Oddities& found) {
  int expected = games_offset;
  for (int w = 0; w < WeekCount; ++w) {
    const ScheduleWeek& week = league.ScheduleData[w];
    const std::string name = "week " + std::to_string(w + 1);
    const int offset = image.ReadWordAt(pointers_offset + 2 * w) + address_to_offset;
    if (offset != expected) {
      found.push_back(
          {"schedule", 0, 0,
           name + "'s pointer leads to " + HexText(offset) + ", not " + HexText(expected)});
    }
    const int count = image.ReadByteAt(counts_offset + w);
    if (count > GamesPerWeek) {
      found.push_back({"schedule", 0, 0,
                       name + " counts " + std::to_string(count) + " games; " +
                           std::to_string(GamesPerWeek) + " are read"});
    }
    FindNumberOddities(image, name, offset, week.GameCount, found);
    FindTeamsTwice(week, name, found);
    expected = offset + game_size * week.GameCount;
  }
}

}  // namespace rostermill
