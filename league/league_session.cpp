#include "league/league_session.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace rostermill {

void LeagueSession::Change(const std::string& description, const LeagueChange& change) {
  if (recorder_) {
    recorder_(description, change);
  } else {
    change(league_);
  }
}

void LeagueSession::SetLeague(LeagueData&& league) {
  // Moved over the old one, a short text would keep the memory of the longest that was ever there.
  static_assert(std::is_nothrow_move_constructible_v<LeagueData>);
  std::destroy_at(&league_);
  std::construct_at(&league_, std::move(league));
}

}  // namespace rostermill
