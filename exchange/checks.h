#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/units.h"

namespace rostermill {

/// What is odd about a league in memory, whatever image it came from. The order is that of lists.
enum class FindingKind {
  Texts,
  Teams,
  Names,
  Players,
  Duties,
  Colors,
  Plays,
  Weeks,
  Season,
  AllStars
};

/// "Texts that do not fit"
std::string_view TitleOf(FindingKind kind);

struct Finding {
  FindingKind Kind = FindingKind::Texts;
  Unit Where;        ///< where it can be put right; see UnitKind
  std::string Text;  ///< UTF-8: "Week 3: SPARROWS play twice"
  bool operator==(const Finding&) const = default;
};

/// All findings in the order of their kinds, then of teams, weeks and places.
std::vector<Finding> CheckLeague(const LeagueData& league);

}  // namespace rostermill
