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
/// 28 and 29 mean the all-star sides, as the abbreviation table has them behind the teams.
constexpr int last_team_number = 29;

std::int16_t TeamNumber(std::uint8_t byte) {
  return static_cast<std::int16_t>(byte > last_team_number ? 0 : byte);
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

}  // namespace rostermill
