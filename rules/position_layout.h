#pragma once

#include <array>
#include <string>
#include <string_view>

#include "league/ratings.h"

namespace rostermill {

/// The caption of a place on the player screens, "Rushing Power:"; empty for a place that the group
/// does not use.
std::string PlaceCaption(PositionGroup group, int place);

struct PositionLabel {
  int ListIndex;  ///< counted from 0, the slot less 1
  std::string_view Label;
  bool operator==(const PositionLabel&) const = default;
};

/// The labels of the six slots that a formation renames; any value but 1 and 2 counts as 0.
const std::array<PositionLabel, 6>& PositionLabels(int formation);

/// The label of any slot, 1 to 30, on a team of this formation: "WR 3".
std::string_view SlotLabel(int formation, int slot);

}  // namespace rostermill
