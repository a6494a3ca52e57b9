// Any bytes are either rejected as a table, with reasons, or change a league; the table of that
// league then changes nothing more. The first byte says which table it is and which options hold.

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "exchange/changes.h"
#include "exchange/player_import.h"
#include "exchange/schedule_table.h"
#include "exchange/team_table.h"
#include "exchange/utf8.h"

namespace {

using namespace rostermill;

struct Kind {
  std::string (*Export)(const LeagueData&);
  std::vector<TableError> (*Import)(std::string_view, const TableOptions&, LeagueData&);
};
constexpr Kind kinds[]{
    {ExportPlayers, ImportPlayers}, {ExportTeams, ImportTeams}, {ExportSchedule, ImportSchedule}};

void Require(bool holds) {
  if (!holds) std::abort();
}

std::unique_ptr<LeagueData> SmallLeague() {
  auto league = std::make_unique<LeagueData>();
  for (int team = 1; team <= TeamCount; ++team) {
    league->TeamData[team].Abbreviation = "T" + std::to_string(team);
    league->TeamData[team].Nickname = "TEAM";  // all the same
  }
  for (PaletteRec& color : league->PaletteData) color.Name = "GRAY";
  return league;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto before = SmallLeague();
  static const auto league = std::make_unique<LeagueData>();
  static const auto again = std::make_unique<LeagueData>();
  if (size == 0) return 0;
  const Kind& kind = kinds[data[0] % 3];
  const TableOptions options{(data[0] & 0x10) != 0, (data[0] & 0x20) != 0, (data[0] & 0x40) != 0};
  *league = *before;
  const auto errors =
      kind.Import({reinterpret_cast<const char*>(data) + 1, size - 1}, options, *league);
  for (const TableError& error : errors) {
    for (const char c : TableErrorLine(error)) Require(!IsControl(c) || (c & 0x80) != 0);
  }
  if (!errors.empty()) return 0;
  *again = *league;
  Require(kind.Import(kind.Export(*league), {}, *again).empty());
  Require(FindChanges(*league, *again).empty());
  return 0;
}
