// Any text is either rejected as JSON of a league, with reasons, or changes a league; the JSON of
// that league then gives it back.

#include "exchange/league_json.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

using namespace rostermill;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// A league with as little in it as an image can hold.
std::unique_ptr<LeagueData> EmptyLeague() {
  auto league = std::make_unique<LeagueData>();
  for (TeamRec& team : league->TeamData) team.Abbreviation = "    ";
  for (auto& roster : league->ProbowlData) {
    for (ProbowlRec& place : roster) place = {1, 1};
  }
  return league;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto empty = EmptyLeague();
  static const auto league = std::make_unique<LeagueData>();
  static const auto again = std::make_unique<LeagueData>();
  *league = *empty;
  const auto errors = ApplyLeagueJson({reinterpret_cast<const char*>(data), size}, *league);
  for (const JsonError& error : errors) {
    for (const char c : JsonErrorLine(error)) Require(c >= ' ' && c < '\x7F');
  }
  if (!errors.empty()) {
    Require(*league == *empty);
    return 0;
  }
  *again = *empty;
  Require(ApplyLeagueJson(WriteLeagueJson(*league, JsonLayout::Compact), *again).empty());
  Require(*again == *league);
  return 0;
}
