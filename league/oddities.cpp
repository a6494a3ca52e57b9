#include "league/oddities.h"

#include <array>
#include <charconv>

#include "league/game_settings.h"
#include "league/playbooks.h"
#include "league/player_attributes.h"
#include "league/player_names.h"
#include "league/probowl.h"
#include "league/save_image.h"
#include "league/schedule.h"
#include "league/team_colors.h"
#include "league/team_data.h"

namespace rostermill {

namespace {

void FindOverflow(const LeagueData& league, Oddities& found) {
  const auto overflow = TextOverflow(league);
  if (overflow) found.push_back({"texts", 0, 0, OneLine(*overflow)});
}

}  // namespace

Oddities FindOddities(OpenImage& image, const LeagueData& league) {
  Oddities found;
  FindReturnerOddities(image, found);
  FindNameOddities(image, found);
  FindTeamDataOddities(image, found);
  FindOverflow(league, found);
  FindProbowlOddities(league, found);
  FindColorOddities(league, found);
  FindPlaybookOddities(image, found);
  FindScheduleOddities(image, league, found);
  FindYearOddities(league, found);
  return found;
}

std::string HexText(int value) {
  std::array<char, 8> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<unsigned>(value), 16);
  return "0x" + UpperText({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

}  // namespace rostermill
