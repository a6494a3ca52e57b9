#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "league/league_data.h"

namespace rostermill {

/// The five position groups in slot order; a player's group decides his table and his ratings.
enum class PositionGroup { QB, Skill, Line, Defense, Kick };

// A group's ratings are counted by place, from 0; places 0 to 3 are the same for all groups. The
// image holds them in this order, two to a byte, the even place in the high nibble.
inline constexpr int PlaceCount = 8;
inline constexpr int SharedPlaceCount = 4;

template <typename Rec>
struct RatingField {
  std::int16_t Rec::*Code;
  std::string_view Name;     ///< "Rushing Power"
  std::string_view Heading;  ///< "RP", over a column
};

template <typename Rec, int Places = SharedPlaceCount>
constexpr auto SharedRatings() {
  return IndexedArray<RatingField<Rec>, 0, Places - 1>{{{
      {&Rec::RushingPower, "Rushing Power", "RP"},
      {&Rec::RunningSpeed, "Running Speed", "RS"},
      {&Rec::MaximumSpeed, "Maximum Speed", "MS"},
      {&Rec::HittingPower, "Hitting Power", "HP"},
  }}};
}

template <typename Rec, int OwnCount>
constexpr auto SharedRatingsAnd(const RatingField<Rec> (&own)[OwnCount]) {
  auto fields = SharedRatings<Rec, SharedPlaceCount + OwnCount>();
  for (int at = 0; at < OwnCount; ++at) fields[SharedPlaceCount + at] = own[at];
  return fields;
}

/// The ratings of a record type by place. LineRec has the shared ones alone.
template <typename Rec>
inline constexpr auto RatingsOf = SharedRatings<Rec>();
template <>
inline constexpr auto RatingsOf<QBRec> = SharedRatingsAnd<QBRec>({
    {&QBRec::PassingSpeed, "Passing Speed", "PS"},
    {&QBRec::PassControl, "Pass Control", "PC"},
    {&QBRec::Accuracy, "Accuracy", "PA"},
    {&QBRec::AvoidPassBlock, "Avoid Pass Block", "APB"},
});
template <>
inline constexpr auto RatingsOf<SkillRec> = SharedRatingsAnd<SkillRec>({
    {&SkillRec::BallControl, "Ball Control", "BC"},
    {&SkillRec::Receptions, "Receptions", "R"},
});
template <>
inline constexpr auto RatingsOf<DefenseRec> = SharedRatingsAnd<DefenseRec>({
    {&DefenseRec::PassInterception, "Pass Interception", "PI"},
    {&DefenseRec::Quickness, "Quickness", "Q"},
});
template <>
inline constexpr auto RatingsOf<KickRec> = SharedRatingsAnd<KickRec>({
    {&KickRec::KickingAbility, "Kicking Ability", "KA"},
    {&KickRec::AvoidKickBlock, "Avoid Kick Block", "AKB"},
});

/// Calls `visit` with each of a team's five tables, in slot order. The league may be const.
template <typename League, typename Visit>
void ForEachPlayerTable(League& league, int team, Visit visit) {
  visit(league.QBData[team]);
  visit(league.SkillData[team]);
  visit(league.LineData[team]);
  visit(league.DefenseData[team]);
  visit(league.KickData[team]);
}

/// A rating of any record type, for columns that players of all groups share.
struct Rating {
  std::string_view Name;
  std::string_view Heading;
  int Place = 0;
  std::optional<PositionGroup> Group;  ///< the one group that has it; empty where all have it
};

inline constexpr int RatingCount = 14;
/// The shared ratings, then each group's own, in the order of the groups and places.
extern const std::array<Rating, RatingCount> AllRatings;

bool HasRating(PositionGroup group, const Rating& rating);

/// The rating in a place of the group. Throws std::out_of_range for a place it doesn't use.
const Rating& RatingAt(PositionGroup group, int place);

/// How many places the group uses, from place 0: 4, 6 or 8.
int PlacesInUse(PositionGroup group);

// All functions below throw std::out_of_range for a wrong slot, 1 to 30, or team.

/// The group of a slot.
PositionGroup GroupOfSlot(int slot);

/// The index of the slot's player in the table of his group, from 1.
int TableIndexOfSlot(int slot);

/// The rating code in a place, 0 to 15. Throws std::out_of_range for a place that the slot's group
/// doesn't use.
int PlaceCode(const LeagueData& league, int team, int slot, int place);

/// Stores the rating code of a place; throws as PlaceCode does.
void SetPlaceCode(LeagueData& league, int team, int slot, int place, int code);

/// The number of the player's photo, 0 to 255.
int FaceOf(const LeagueData& league, int team, int slot);
void SetFace(LeagueData& league, int team, int slot, int face);

}  // namespace rostermill
