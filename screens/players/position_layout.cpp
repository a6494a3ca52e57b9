#include "screens/players/position_layout.h"

#include <span>
#include <stdexcept>

namespace rostermill {

namespace {

struct GroupRow {
  PositionGroup group;
  int first_slot;
  int last_slot;
};

constexpr std::array<GroupRow, 5> groups{{{PositionGroup::QB, 1, 2},
                                          {PositionGroup::Skill, 3, 12},
                                          {PositionGroup::Line, 13, 17},
                                          {PositionGroup::Defense, 18, 28},
                                          {PositionGroup::Kick, 29, 30}}};

const GroupRow& RowOfSlot(int slot) {
  for (const GroupRow& row : groups) {
    if (slot >= row.first_slot && slot <= row.last_slot) return row;
  }
  throw std::out_of_range("no roster slot " + std::to_string(slot));
}

constexpr std::array<std::string_view, SharedPlaceCount> shared_captions{
    "Rushing Power:", "Running Speed:", "Maximum Speed:", "Hitting Power:"};

std::span<const std::string_view> OwnCaptions(PositionGroup group) {
  static constexpr std::array<std::string_view, 4> qb{
      "Passing Speed:", "Pass Control:", "Accuracy:", "Avoid Pass Block:"};
  static constexpr std::array<std::string_view, 2> skill{"Ball Control:", "Receptions:"};
  static constexpr std::array<std::string_view, 2> defense{"Pass Interception:", "Quickness:"};
  static constexpr std::array<std::string_view, 2> kick{"Kicking Abiblity:", "Avoid Kick Block:"};
  switch (group) {
    case PositionGroup::QB:
      return qb;
    case PositionGroup::Skill:
      return skill;
    case PositionGroup::Line:
      return {};
    case PositionGroup::Defense:
      return defense;
    case PositionGroup::Kick:
      return kick;
  }
  return {};
}

// The fields behind places 4 and up, in order.
std::int16_t& OwnField(QBRec& rec, int place) {
  switch (place) {
    case 4:
      return rec.PassingSpeed;
    case 5:
      return rec.PassControl;
    case 6:
      return rec.Accuracy;
    default:
      return rec.AvoidPassBlock;
  }
}
std::int16_t& OwnField(SkillRec& rec, int place) {
  return place == 4 ? rec.BallControl : rec.Receptions;
}
std::int16_t& OwnField(LineRec& rec, int) {
  return rec.HittingPower;
}
std::int16_t& OwnField(DefenseRec& rec, int place) {
  return place == 4 ? rec.PassInterception : rec.Quickness;
}
std::int16_t& OwnField(KickRec& rec, int place) {
  return place == 4 ? rec.KickingAbility : rec.AvoidKickBlock;
}

template <typename Rec>
std::int16_t& Field(Rec& rec, int place) {
  switch (place) {
    case 0:
      return rec.RushingPower;
    case 1:
      return rec.RunningSpeed;
    case 2:
      return rec.MaximumSpeed;
    case 3:
      return rec.HittingPower;
    default:
      return OwnField(rec, place);
  }
}

/// Calls `use` with the player's record, whichever table holds it.
template <typename Use>
auto& WithRecord(LeagueData& league, int team, int slot, Use use) {
  const int index = TableIndexOfSlot(slot);
  switch (GroupOfSlot(slot)) {
    case PositionGroup::QB:
      return use(league.QBData[team][index]);
    case PositionGroup::Skill:
      return use(league.SkillData[team][index]);
    case PositionGroup::Line:
      return use(league.LineData[team][index]);
    case PositionGroup::Defense:
      return use(league.DefenseData[team][index]);
    case PositionGroup::Kick:
      break;
  }
  return use(league.KickData[team][index]);
}

std::int16_t& PlaceField(LeagueData& league, int team, int slot, int place) {
  if (place < 0 || place >= PlacesInUse(GroupOfSlot(slot))) {
    throw std::out_of_range("no attribute place " + std::to_string(place));
  }
  return WithRecord(league, team, slot,
                    [place](auto& rec) -> std::int16_t& { return Field(rec, place); });
}

std::int16_t& FaceField(LeagueData& league, int team, int slot) {
  return WithRecord(league, team, slot, [](auto& rec) -> std::int16_t& { return rec.Face; });
}

}  // namespace

PositionGroup GroupOfSlot(int slot) {
  return RowOfSlot(slot).group;
}

int TableIndexOfSlot(int slot) {
  return slot - RowOfSlot(slot).first_slot + 1;
}

int PlacesInUse(PositionGroup group) {
  return SharedPlaceCount + static_cast<int>(OwnCaptions(group).size());
}

std::string_view PlaceCaption(PositionGroup group, int place) {
  if (place < 0 || place >= PlacesInUse(group)) return {};
  const auto at = static_cast<std::size_t>(place);
  return place < SharedPlaceCount ? shared_captions[at] : OwnCaptions(group)[at - SharedPlaceCount];
}

// The readers below share the field lookup with the writers; they change nothing.

int PlaceCode(const LeagueData& league, int team, int slot, int place) {
  return PlaceField(const_cast<LeagueData&>(league), team, slot, place);
}

void SetPlaceCode(LeagueData& league, int team, int slot, int place, int code) {
  PlaceField(league, team, slot, place) = static_cast<std::int16_t>(code);
}

int FaceOf(const LeagueData& league, int team, int slot) {
  return FaceField(const_cast<LeagueData&>(league), team, slot);
}

void SetFace(LeagueData& league, int team, int slot, int face) {
  FaceField(league, team, slot) = static_cast<std::int16_t>(face);
}

const std::array<PositionLabel, 6>& PositionLabels(int formation) {
  static constexpr std::array<std::array<PositionLabel, 6>, 3> labels{
      {{{{3, "RB 2"}, {4, "RB 3"}, {5, "RB 4"}, {8, "WR 3"}, {10, "TE 1"}, {11, "TE 2"}}},
       {{{3, "WR 3"}, {4, "RB 2"}, {5, "RB 3"}, {8, "RB 4"}, {10, "WR 5"}, {11, "WR 6"}}},
       {{{3, "WR 3"}, {4, "RB 2"}, {5, "RB 3"}, {8, "RB 4"}, {10, "TE 1"}, {11, "TE 2"}}}}};
  return labels[formation == 1 || formation == 2 ? static_cast<std::size_t>(formation) : 0];
}

}  // namespace rostermill
