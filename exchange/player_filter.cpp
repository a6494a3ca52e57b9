#include "exchange/player_filter.h"

#include <algorithm>

#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/text.h"

namespace rostermill {

namespace {

constexpr std::string_view relation_signs = "<>=!";

const Column* FindColumn(std::string_view heading) {
  const std::string wanted = LowerText(heading);
  for (const auto& heading_of : {ShortHeading, +[](const Column& c) { return c.Heading; }}) {
    for (const Column& column : PlayerColumns) {
      std::string text = LowerText(heading_of(column));
      std::erase(text, ' ');
      if (text == wanted) return &column;
    }
  }
  return nullptr;
}

bool HasNumbers(const Column& column) {
  using enum ColumnKind;
  return column.Kind == Rating || column.Kind == Number || column.Kind == Face ||
         column.Kind == Team || column.Kind == Slot;
}

}  // namespace

std::string_view ShortHeading(const Column& column) {
  switch (column.Kind) {
    case ColumnKind::Team:
      return "TeamNo";
    case ColumnKind::TeamName:
      return "Team";
    case ColumnKind::Position:
      return "Pos";
    case ColumnKind::FirstName:
      return "First";
    case ColumnKind::LastName:
      return "Last";
    case ColumnKind::Number:
      return "No";
    case ColumnKind::Face:
      return "Photo";
    case ColumnKind::KickReturner:
      return "KR";
    case ColumnKind::PuntReturner:
      return "PR";
    case ColumnKind::Slot:
      return column.Heading;
    case ColumnKind::Rating:
      break;
  }
  const auto found = std::ranges::find(AllRatings, column.Heading, &Rating::Name);
  return found->Heading;
}

PlayerFilter::PlayerFilter(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    if (end > at) Read(std::string(text.substr(at, end - at)));
    at = end + 1;
  }
}

void PlayerFilter::Read(const std::string& token) {
  const std::size_t sign = token.find_first_of(relation_signs);
  if (sign == std::string::npos) {
    words_.push_back(token);
    return;
  }
  const std::size_t value = std::min(token.find_first_not_of(relation_signs, sign), token.size());
  const std::string relation = token.substr(sign, value - sign);
  Condition condition{FindColumn(token.substr(0, sign)), Relation::Equal, token.substr(value), {}};
  constexpr std::pair<std::string_view, Relation> relations[]{
      {"=", Relation::Equal},    {"==", Relation::Equal},  {"!=", Relation::Unequal},
      {"<>", Relation::Unequal}, {"<", Relation::Below},   {"<=", Relation::AtMost},
      {">", Relation::Above},    {">=", Relation::AtLeast}};
  const auto known =
      std::ranges::find(relations, relation, &std::pair<std::string_view, Relation>::first);
  constexpr int largest = 999;
  condition.Number = NumberIn(condition.Text, largest);
  const auto fail = [&](const std::string& why) {
    if (problem_.empty()) problem_ = "\"" + Shown(token) + "\": " + why;
  };
  if (condition.Of == nullptr) return fail("there is no such column");
  if (known == std::end(relations)) return fail("the signs are = != < <= > >=");
  condition.Is = known->second;
  const bool order = condition.Is != Relation::Equal && condition.Is != Relation::Unequal;
  if (HasNumbers(*condition.Of) && !condition.Number) return fail("a number has to follow");
  if (order && !HasNumbers(*condition.Of)) return fail("this column has no numbers");
  conditions_.push_back(std::move(condition));
}

bool PlayerFilter::Holds(const Condition& condition, const LeagueData& league,
                         PlayerPlace player) const {
  const auto [team, slot] = player;
  const auto cell = Latin1Of(PlayerCell(league, team, slot, *condition.Of)).value_or("");
  if (!HasColumn(*condition.Of, slot)) return false;
  if (!HasNumbers(*condition.Of)) {
    const bool same = LowerText(cell) == LowerText(condition.Text);
    return same == (condition.Is == Relation::Equal);
  }
  constexpr int largest = 999;
  const auto number = NumberIn(cell, largest);
  if (!number) return false;
  switch (condition.Is) {
    case Relation::Equal:
      return *number == *condition.Number;
    case Relation::Unequal:
      return *number != *condition.Number;
    case Relation::Below:
      return *number < *condition.Number;
    case Relation::AtMost:
      return *number <= *condition.Number;
    case Relation::Above:
      return *number > *condition.Number;
    case Relation::AtLeast:
      break;
  }
  return *number >= *condition.Number;
}

bool PlayerFilter::Accepts(const LeagueData& league, PlayerPlace player) const {
  return HasWords(league, player, words_) &&
         std::ranges::all_of(conditions_, [&](const Condition& condition) {
           return Holds(condition, league, player);
         });
}

}  // namespace rostermill
