#pragma once

#include <array>
#include <string_view>

#include "league/league_data.h"

namespace rostermill {

/// The five position groups; a player's group decides his table and his attributes.
enum class PositionGroup { QB, Skill, Line, Defense, Kick };

/// Attribute places on a player screen, counted from 0: 0 to 3 are the same for all groups.
inline constexpr int PlaceCount = 8;
inline constexpr int SharedPlaceCount = 4;

/// The group of a slot, 1 to 30.
PositionGroup GroupOfSlot(int slot);

/// The index of the slot's player in the table of his group, from 1.
int TableIndexOfSlot(int slot);

/// How many places the group uses, from place 0: 4, 6 or 8.
int PlacesInUse(PositionGroup group);

/// The caption of a place, "Rushing Power:"; empty for a place that the group doesn't use.
std::string_view PlaceCaption(PositionGroup group, int place);

/// The rating code behind a place, 0 to 15. Throws std::out_of_range for a place that the slot's
/// group doesn't use.
int PlaceCode(const LeagueData& league, int team, int slot, int place);

/// Stores the rating code of a place; throws as PlaceCode does.
void SetPlaceCode(LeagueData& league, int team, int slot, int place, int code);

/// The number of the player's photo, 0 to 255.
int FaceOf(const LeagueData& league, int team, int slot);
void SetFace(LeagueData& league, int team, int slot, int face);

struct PositionLabel {
  int ListIndex;  ///< counted from 0, the slot less 1
  std::string_view Label;
  bool operator==(const PositionLabel&) const = default;
};

/// The labels of the six slots that a formation renames; any value but 1 and 2 counts as 0.
const std::array<PositionLabel, 6>& PositionLabels(int formation);

}  // namespace rostermill
