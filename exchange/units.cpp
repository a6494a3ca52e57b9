#include "exchange/units.h"

#include <algorithm>

#include "league/ratings.h"

namespace rostermill {

namespace {

/// Calls visit(field, ...) for each field of the unit, with that of each league given. Not for
/// faces and ratings, which lie in records of five types.
template <typename Visit, typename... League>
void VisitFields(const Unit& unit, const Visit& visit, League&... leagues) {
  const int team = unit.Team, slot = unit.Slot, part = unit.Part;
  const auto duty = [&](std::int16_t SkillRec::*flag) {
    for (int slot_of = 1; slot_of <= SlotCount; ++slot_of) {
      if (GroupOfSlot(slot_of) != PositionGroup::Skill) continue;
      visit(leagues.SkillData[team][TableIndexOfSlot(slot_of)].*flag...);
    }
  };
  switch (unit.Kind) {
    case UnitKind::RosterYear:
      return visit(leagues.RosterYear...);
    case UnitKind::LeagueText:
      return visit(leagues.LeagueText[part]...);
    case UnitKind::City:
      return visit(leagues.TeamData[team].City...);
    case UnitKind::Nickname:
      return visit(leagues.TeamData[team].Nickname...);
    case UnitKind::Abbreviation:
      return visit(leagues.TeamData[team].Abbreviation...);
    case UnitKind::Formation:
      return visit(leagues.TeamData[team].Formation...);
    case UnitKind::UniformColor:
      return visit(leagues.TeamData[team].TeamColors[part]...);
    case UnitKind::DivisionColor:
      return visit(leagues.TeamData[team].DivChampColors[part]...);
    case UnitKind::ConferenceColor:
      return visit(leagues.TeamData[team].ConfChampColors[part]...);
    case UnitKind::Play:
      return visit(leagues.TeamPlays[team][part]...);
    case UnitKind::KickReturner:
      return duty(&SkillRec::KickReturner);
    case UnitKind::PuntReturner:
      return duty(&SkillRec::PuntReturner);
    case UnitKind::Name:
      visit(leagues.NameData[team][slot].FirstName...);
      return visit(leagues.NameData[team][slot].LastName...);
    case UnitKind::Number:
      return visit(leagues.NameData[team][slot].JerseyNumber...);
    case UnitKind::Week:
      return visit(leagues.ScheduleData[part - 1]...);
    case UnitKind::AllStar:
      return visit(leagues.ProbowlData[part][slot]...);
    case UnitKind::Face:
    case UnitKind::Rating:
      break;
  }
}

template <typename Value>
bool Same(const Value& a, const Value& b) {
  return a == b;
}

bool Same(const ScheduleWeek& a, const ScheduleWeek& b) {
  return a.GameCount == b.GameCount &&
         std::equal(a.Games.begin(), a.Games.begin() + a.GameCount, b.Games.begin());
}

}  // namespace

bool SameUnit(const LeagueData& a, const LeagueData& b, const Unit& unit) {
  const auto [kind, team, slot, part] = unit;
  if (kind == UnitKind::Face) return FaceOf(a, team, slot) == FaceOf(b, team, slot);
  if (kind == UnitKind::Rating) {
    return PlaceCode(a, team, slot, part) == PlaceCode(b, team, slot, part);
  }
  bool same = true;
  VisitFields(
      unit, [&same](const auto& x, const auto& y) { same = same && Same(x, y); }, a, b);
  return same;
}

void CopyUnit(const LeagueData& from, LeagueData& to, const Unit& unit) {
  const auto [kind, team, slot, part] = unit;
  if (kind == UnitKind::Face) return SetFace(to, team, slot, FaceOf(from, team, slot));
  if (kind == UnitKind::Rating) {
    return SetPlaceCode(to, team, slot, part, PlaceCode(from, team, slot, part));
  }
  VisitFields(
      unit, [](const auto& value, auto& copy) { copy = value; }, from, to);
}

}  // namespace rostermill
