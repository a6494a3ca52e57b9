// Whatever the names and ratings are, the columns of the export lines are in the right places.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "rules/leader_export.h"

namespace {

using namespace rostermill;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Takes bytes from the front of the input; 0 past its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  int Byte() { return at_ < size_ ? data_[at_++] : 0; }
  std::string Text() {
    const auto length = std::min<std::size_t>(static_cast<std::size_t>(Byte()), size_ - at_);
    const auto* first = reinterpret_cast<const char*>(data_ + at_);
    at_ += length;
    return {first, length};
  }
  bool AtEnd() const { return at_ >= size_; }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

/// Fills in formations, names and ratings until the input ends; the rest stays empty.
void FillLeague(Input& input, LeagueData& league) {
  const auto code = [&input] { return static_cast<std::int16_t>(input.Byte() % 16); };
  for (int team = 1; team <= TeamCount; ++team) {
    league.TeamData[team].Formation = static_cast<std::uint8_t>(input.Byte() % 3);
    for (int slot = 1; slot <= SlotCount && !input.AtEnd(); ++slot) {
      league.NameData[team][slot].FirstName = input.Text();
      league.NameData[team][slot].LastName = input.Text();
    }
    for (auto& rec : league.QBData[team]) rec.RunningSpeed = code();
    for (auto& rec : league.SkillData[team]) rec.Receptions = code();
    for (auto& rec : league.KickData[team]) rec.KickingAbility = code();
  }
}

void CheckLines(const LeaderTable& rows, int count, int group) {
  const auto lines = LeaderLines(rows, count, group);
  Require(lines.size() == static_cast<std::size_t>(count) + 1);
  const auto columns = static_cast<std::size_t>(LeaderColumnCount(group));
  std::size_t bytes = 0;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    bytes += lines[at].size() + 2;
    if (at == 0) continue;
    // Rank, period and blank, 21 columns of name, blanks up to column 29, four columns per rating.
    std::size_t wide = 0;  // "100" is one column wider
    for (int column = 1; column <= LeaderColumnCount(group); ++column) {
      if (rows[static_cast<int>(at)].Attr[column] == 15) ++wide;
    }
    Require(lines[at].size() == 28 + 4 * columns + wide);
    Require(lines[at].substr(3, 2) == ". ");
    Require(lines[at].substr(26, 2) == "  ");
    Require(std::stoul(lines[at].substr(0, 3)) == at);
  }
  Require(ExportBytes(lines).size() == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto league = std::make_unique<LeagueData>();
  static auto rows = std::make_unique<LeaderTable>();
  *league = {};
  *rows = {};
  Input input(data, size);
  const int group = input.Byte() % LeaderGroupCount;
  SortFlagTable flags;
  for (int column = input.Byte() % 9; column >= 0; column -= 3) ToggleHeading(flags, column);
  FillLeague(input, *league);
  const int count = FillLeaderRows(*league, group, *rows);
  LeaderTable sorted = *rows;
  SortLeaderRows(sorted, count, flags);
  Require(std::is_permutation(sorted.begin(), sorted.begin() + count, rows->begin()));
  CheckLines(sorted, count, group);
  return 0;
}
