#include "league/ratings.h"

#include <algorithm>

namespace rostermill {

namespace {

constexpr IndexedArray<int, 0, 4> first_slots{{1, 3, 13, 18, 29}};

constexpr std::array<Rating, RatingCount> ListRatings() {
  std::array<Rating, RatingCount> all;
  std::size_t count = 0;
  const auto add = [&](const auto& fields, std::optional<PositionGroup> group, int first, int end) {
    for (int place = first; place < end; ++place) {
      all[count++] = {fields[place].Name, fields[place].Heading, place, group};
    }
  };
  const auto add_own = [&](const auto& fields, PositionGroup group) {
    add(fields, group, SharedPlaceCount, fields.count);
  };
  add(RatingsOf<LineRec>, std::nullopt, 0, SharedPlaceCount);
  add_own(RatingsOf<QBRec>, PositionGroup::QB);
  add_own(RatingsOf<SkillRec>, PositionGroup::Skill);
  add_own(RatingsOf<DefenseRec>, PositionGroup::Defense);
  add_own(RatingsOf<KickRec>, PositionGroup::Kick);
  return all;
}

/// The field that `pick` chooses of the player's record.
template <typename League, typename Pick>
auto& FieldOf(League& league, int team, int slot, Pick pick) {
  decltype(&pick(league.QBData[team][1])) field = nullptr;
  int index = slot;  // in the table
  ForEachPlayerTable(league, team, [&](auto& table) {
    if (index >= table.first && index <= table.last) field = &pick(table[index]);
    index -= table.count;
  });
  if (field == nullptr) ThrowIndexOutside(slot, 1, SlotCount);
  return *field;
}

template <typename League>
auto& PlaceField(League& league, int team, int slot, int place) {
  return FieldOf(
      league, team, slot, [place](auto& rec) -> auto& {
        const auto& ratings = RatingsOf<std::decay_t<decltype(rec)>>;
        return rec.*ratings[place].Code;
      });
}

template <typename League>
auto& FaceField(League& league, int team, int slot) {
  return FieldOf(
      league, team, slot, [](auto& rec) -> auto& { return rec.Face; });
}

}  // namespace

constinit const std::array<Rating, RatingCount> AllRatings = ListRatings();

bool HasRating(PositionGroup group, const Rating& rating) {
  return !rating.Group || *rating.Group == group;
}

const Rating& RatingAt(PositionGroup group, int place) {
  const auto* found = std::find_if(AllRatings.begin(), AllRatings.end(), [&](const Rating& rating) {
    return rating.Place == place && HasRating(group, rating);
  });
  if (found == AllRatings.end()) ThrowIndexOutside(place, 0, PlacesInUse(group) - 1);
  return *found;
}

int PlacesInUse(PositionGroup group) {
  return static_cast<int>(
      std::count_if(AllRatings.begin(), AllRatings.end(),
                    [group](const Rating& rating) { return HasRating(group, rating); }));
}

PositionGroup GroupOfSlot(int slot) {
  if (slot < 1 || slot > SlotCount) ThrowIndexOutside(slot, 1, SlotCount);
  const auto* after = std::upper_bound(first_slots.begin(), first_slots.end(), slot);
  return static_cast<PositionGroup>(after - first_slots.begin() - 1);
}

int TableIndexOfSlot(int slot) {
  return slot - first_slots[static_cast<int>(GroupOfSlot(slot))] + 1;
}

int PlaceCode(const LeagueData& league, int team, int slot, int place) {
  return PlaceField(league, team, slot, place);
}

void SetPlaceCode(LeagueData& league, int team, int slot, int place, int code) {
  PlaceField(league, team, slot, place) = static_cast<std::int16_t>(code);
}

int FaceOf(const LeagueData& league, int team, int slot) {
  return FaceField(league, team, slot);
}

void SetFace(LeagueData& league, int team, int slot, int face) {
  FaceField(league, team, slot) = static_cast<std::int16_t>(face);
}

}  // namespace rostermill
