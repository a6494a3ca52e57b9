#include "rules/leader_rows.h"

#include <utility>

#include "rules/display_text.h"
#include "rules/position_layout.h"

namespace rostermill {

namespace {

/// The rating's place in each column. The first two are swapped, as on the player screens.
constexpr IndexedArray<int, 1, LeaderColumnLimit> places{{1, 0, 2, 3, 4, 5, 6, 7}};

struct LeaderGroup {
  std::string_view title;
  std::string_view file_name;
  int first_slot;
  int last_slot;
  /// How labels of the group's slots begin under the team's formation; empty if all slots belong.
  std::string_view label;
};

constexpr IndexedArray<LeaderGroup, 0, LeaderGroupCount - 1> groups{
    {{{"Quarterback", "rsm_qb.txt", 1, 2, {}},
      {"Running Back", "rsm_rb.txt", 3, 12, "RB"},
      {"Wide Receiver", "rsm_wr.txt", 3, 12, "WR"},
      {"Tight End", "rsm_te.txt", 3, 12, "TE"},
      {"Offensive Lineman", "rsm_ol.txt", 13, 17, {}},
      {"Defensive Lineman", "rsm_dl.txt", 18, 20, {}},
      {"Linebacker", "rsm_lb.txt", 21, 24, {}},
      {"Secondary", "rsm_se.txt", 25, 28, {}},
      {"Kicker", "rsm_k.txt", 29, 29, {}},
      {"Punter", "rsm_p.txt", 30, 30, {}}}}};

PositionGroup RatingGroup(int group) {
  return GroupOfSlot(groups[group].first_slot);
}

bool BelongsTo(const LeaderGroup& group, int formation, int slot) {
  return group.label.empty() || SlotLabel(formation, slot).starts_with(group.label);
}

/// "Miller, J.T."
std::string DisplayName(const LeagueData& league, int team, int slot) {
  std::string name = LowerText(PlayerListText(league, team, slot));
  name.resize(name.find_last_not_of(' ') + 1);
  bool starts_word = true;
  for (char& c : name) {
    if (starts_word) c = UpperChar(c);
    starts_word = c == '.' || c == ' ';
  }
  return name;
}

int TotalOf(const LeaderRow& row, const SortFlagTable& flags) {
  int total = 0;
  for (int column = 1; column <= LeaderColumnLimit; ++column) {
    if (flags[column]) total += row.Attr[column];
  }
  return total;
}

bool OutOfOrder(const LeaderRow& upper, const LeaderRow& lower, const SortFlagTable& flags) {
  if (!flags[0]) {
    const int upper_total = TotalOf(upper, flags);
    const int lower_total = TotalOf(lower, flags);
    if (upper_total != lower_total) return lower_total > upper_total;
  }
  return upper.Name > lower.Name;
}

/// Moves the row at `low` to its place among rows low to high, smaller ones before it and larger
/// ones after it. Returns its place.
int Partition(LeaderTable& rows, int low, int high, const SortFlagTable& flags) {
  bool from_above = true;
  while (high > low) {
    if (OutOfOrder(rows[low], rows[high], flags)) {
      std::swap(rows[low], rows[high]);
      from_above = !from_above;
    }
    if (from_above) {
      --high;
    } else {
      ++low;
    }
  }
  return low;
}

}  // namespace

std::string_view LeaderGroupTitle(int group) {
  return groups[group].title;
}

std::string_view LeaderFileName(int group) {
  return groups[group].file_name;
}

int LeaderColumnCount(int group) {
  return PlacesInUse(RatingGroup(group));
}

LeaderHeading HeadingOf(int group, int column) {
  const PositionGroup rated = RatingGroup(group);
  if (column == 0) return {"Name", "Name"};
  const int place = places[column];
  if (place >= PlacesInUse(rated)) return {};
  const Rating& rating = RatingAt(rated, place);
  return {rating.Heading, rating.Name};
}

int FillLeaderRows(const LeagueData& league, int group, LeaderTable& rows) {
  const LeaderGroup& taken = groups[group];
  const int columns = LeaderColumnCount(group);
  int count = 0;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = taken.first_slot; slot <= taken.last_slot; ++slot) {
      if (!BelongsTo(taken, league.TeamData[team].Formation, slot)) continue;
      LeaderRow& row = rows[++count];
      row.Name = DisplayName(league, team, slot);
      row.Team = static_cast<std::int16_t>(team);
      row.Slot = static_cast<std::int16_t>(slot);
      for (int column = 1; column <= columns; ++column) {
        row.Attr[column] = static_cast<std::int16_t>(PlaceCode(league, team, slot, places[column]));
      }
    }
  }
  return count;
}

void ToggleHeading(SortFlagTable& flags, int column) {
  flags[column] = !flags[column];
  if (!flags[column]) return;
  if (column == 0) {
    flags = {};
    flags[0] = true;
  } else {
    flags[0] = false;
  }
}

// Rows that are equal in key and name must always come out in the same order, so that exports of a
// league are identical; no library sort guarantees that.
void SortLeaderRows(LeaderTable& rows, int row_count, const SortFlagTable& flags) {
  if (row_count < 2) return;
  IndexedArray<int, 1, 20> SortStack;
  int top = 0;
  int low = 1;
  int high = row_count;
  for (;;) {
    while (low < high) {
      const int middle = Partition(rows, low, high, flags);
      // The larger part waits, so that the stack never holds more than eight parts.
      if (middle - low <= high - middle) {
        SortStack[top + 1] = middle + 1;
        SortStack[top + 2] = high;
        high = middle;
      } else {
        SortStack[top + 1] = low;
        SortStack[top + 2] = middle - 1;
        low = middle;
      }
      top += 2;
    }
    if (top == 0) return;
    high = SortStack[top];
    low = SortStack[top - 1];
    top -= 2;
  }
}

}  // namespace rostermill
