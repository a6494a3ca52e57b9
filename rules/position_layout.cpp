#include "rules/position_layout.h"

#include "league/league_tables.h"

namespace rostermill {

std::string PlaceCaption(PositionGroup group, int place) {
  if (place < 0 || place >= PlacesInUse(group)) return {};
  const std::string_view name = RatingAt(group, place).Name;
  // The spelling of this caption on the player screens is a contract.
  return std::string(name == "Kicking Ability" ? "Kicking Abiblity" : name) + ":";
}

const std::array<PositionLabel, 6>& PositionLabels(int formation) {
  static constexpr std::array<std::array<PositionLabel, 6>, 3> labels{
      {{{{3, "RB 2"}, {4, "RB 3"}, {5, "RB 4"}, {8, "WR 3"}, {10, "TE 1"}, {11, "TE 2"}}},
       {{{3, "WR 3"}, {4, "RB 2"}, {5, "RB 3"}, {8, "RB 4"}, {10, "WR 5"}, {11, "WR 6"}}},
       {{{3, "WR 3"}, {4, "RB 2"}, {5, "RB 3"}, {8, "RB 4"}, {10, "TE 1"}, {11, "TE 2"}}}}};
  return labels[formation == 1 || formation == 2 ? static_cast<std::size_t>(formation) : 0];
}

std::string_view SlotLabel(int formation, int slot) {
  for (const PositionLabel& label : PositionLabels(formation)) {
    if (label.ListIndex + 1 == slot) return label.Label;
  }
  return SlotLabels[slot];
}

}  // namespace rostermill
