#include "exchange/player_table.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "exchange/utf8.h"
#include "exchange/wording.h"
#include "league/league_tables.h"
#include "rules/display_text.h"
#include "rules/position_layout.h"

namespace rostermill {

using enum PositionGroup;

namespace {

std::vector<Column> ListColumns() {
  std::vector<Column> columns{{ColumnKind::Team, "Team", 0, {}},
                              {ColumnKind::TeamName, "Team Name", 0, {}},
                              {ColumnKind::Slot, "Slot", 0, {}},
                              {ColumnKind::Position, "Position", 0, {}},
                              {ColumnKind::FirstName, "First Name", 0, {}},
                              {ColumnKind::LastName, "Last Name", 0, {}},
                              {ColumnKind::Number, "Number", 0, {}},
                              {ColumnKind::Face, "Face", 0, {}}};
  for (const Rating& rating : AllRatings) {
    columns.push_back({ColumnKind::Rating, rating.Name, rating.Place, rating.Group});
  }
  columns.push_back({ColumnKind::KickReturner, "Kick Returner", 0, Skill});
  columns.push_back({ColumnKind::PuntReturner, "Punt Returner", 0, Skill});
  return columns;
}

using Problem = std::optional<std::string>;

std::string InQuotes(std::string_view text) {
  return "\"" + Shown(text) + "\"";
}

/// The values of RatingValues on both sides of one between them, for the message.
std::string NearestRatings(std::string_view text) {
  const auto value = NumberIn(text, RatingValues[RatingValues.last]);
  if (!value || *value < RatingValues[0]) {
    return "they go from " + std::to_string(RatingValues[0]) + " to " +
           std::to_string(RatingValues[RatingValues.last]);
  }
  int above = 0;
  while (RatingValues[above] < *value) ++above;
  return "the nearest are " + std::to_string(RatingValues[above - 1]) + " and " +
         std::to_string(RatingValues[above]);
}

Problem SetRating(LeagueData& league, int team, int slot, const Column& column,
                  std::string_view text, bool round) {
  if (!HasColumn(column, slot)) {
    return std::string(SlotLabels[slot]) + " has no " + std::string(column.Heading);
  }
  constexpr int largest = 999;
  auto code = RatingToCode(text);
  if (const auto number = NumberIn(text, largest); round && number) {
    code = NearestRatingCode(*number);
  }
  if (!code) return InQuotes(text) + " is not a rating; " + NearestRatings(text);
  SetPlaceCode(league, team, slot, column.Place, *code);
  return std::nullopt;
}

Problem SetNumber(NameRec& name, std::string_view text) {
  constexpr int largest = 99;
  const auto number = NumberIn(text, largest);
  if (!number) return InQuotes(text) + " is not a number from 0 to 99";
  name.JerseyNumber = std::to_string(*number);
  name.JerseyNumber.insert(0, 2 - name.JerseyNumber.size(), '0');
  return std::nullopt;
}

Problem SetFaceNumber(LeagueData& league, int team, int slot, std::string_view text) {
  constexpr int largest = 255;
  const auto face = NumberIn(text, largest);
  if (!face) return InQuotes(text) + " is not a face number from 0 to 255";
  SetFace(league, team, slot, *face);
  return std::nullopt;
}

std::string ReturnerCell(const LeagueData& league, int team, int slot, ColumnKind kind) {
  if (GroupOfSlot(slot) != Skill) return {};
  return league.SkillData[team][TableIndexOfSlot(slot)].*ReturnerField(kind) != 0 ? "yes" : "no";
}

}  // namespace

const std::vector<Column> PlayerColumns = ListColumns();

std::optional<int> NumberIn(std::string_view text, int largest) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = error == std::errc{} && end == text.data() + text.size();
  if (!whole || value > static_cast<unsigned>(largest)) return std::nullopt;
  return static_cast<int>(value);
}

bool HasColumn(const Column& column, int slot) {
  return !column.Group || *column.Group == GroupOfSlot(slot);
}

std::int16_t SkillRec::*ReturnerField(ColumnKind kind) {
  return kind == ColumnKind::KickReturner ? &SkillRec::KickReturner : &SkillRec::PuntReturner;
}

std::string PlayerCell(const LeagueData& league, int team, int slot, const Column& column) {
  const NameRec& name = league.NameData[team][slot];
  switch (column.Kind) {
    case ColumnKind::Team:
      return std::to_string(team);
    case ColumnKind::TeamName:
      return Utf8Of(TeamListText(league, team));
    case ColumnKind::Slot:
      return std::to_string(slot);
    case ColumnKind::Position:
      return std::string(SlotLabel(league.TeamData[team].Formation, slot));
    case ColumnKind::FirstName:
      return Utf8Of(name.FirstName);
    case ColumnKind::LastName:
      return Utf8Of(name.LastName);
    case ColumnKind::Number:
      return Utf8Of(name.JerseyNumber);
    case ColumnKind::Face:
      return std::to_string(FaceOf(league, team, slot));
    case ColumnKind::Rating:
      if (!HasColumn(column, slot)) return {};
      return std::to_string(RatingValues[PlaceCode(league, team, slot, column.Place)]);
    case ColumnKind::KickReturner:
    case ColumnKind::PuntReturner:
      break;
  }
  return ReturnerCell(league, team, slot, column.Kind);
}

int NearestRatingCode(int number) {
  int nearest = RatingValues.first;
  for (int code = RatingValues.first; code <= RatingValues.last; ++code) {
    if (std::abs(RatingValues[code] - number) <= std::abs(RatingValues[nearest] - number)) {
      nearest = code;
    }
  }
  return nearest;
}

Problem SetPlayerCell(LeagueData& league, int team, int slot, const Column& column,
                      std::string_view text, bool round) {
  NameRec& name = league.NameData[team][slot];
  if (column.Kind == ColumnKind::FirstName) {
    name.FirstName = LowerText(text);
  } else if (column.Kind == ColumnKind::LastName) {
    name.LastName = UpperText(text);
  } else if (text.empty()) {
    return std::nullopt;
  } else if (column.Kind == ColumnKind::Number) {
    return SetNumber(name, text);
  } else if (column.Kind == ColumnKind::Face) {
    return SetFaceNumber(league, team, slot, text);
  } else if (column.Kind == ColumnKind::Rating) {
    return SetRating(league, team, slot, column, text, round);
  }
  return std::nullopt;
}

Problem NameProblem(const NameRec& name) {
  constexpr std::size_t longest = 15;
  const std::string text = name.FirstName + name.LastName;
  if (text.size() > longest) {
    return InQuotes(name.FirstName + " " + name.LastName) + " has more than " +
           std::to_string(longest) + " letters";
  }
  if (std::any_of(text.begin(), text.end(), IsControl)) {
    return InQuotes(text) + " holds a control character";
  }
  const bool capital =
      !name.LastName.empty() && name.LastName.front() >= 'A' && name.LastName.front() <= 'Z';
  if (text.empty() || capital) return std::nullopt;
  return "the last name " + InQuotes(name.LastName) + " must begin with a letter from A to Z";
}

std::optional<bool> YesOrNo(std::string_view text) {
  const std::string word = LowerText(text);
  for (const std::string_view yes : {"yes", "y", "true", "1", "x"}) {
    if (word == yes) return true;
  }
  for (const std::string_view no : {"no", "n", "false", "0"}) {
    if (word == no) return false;
  }
  return std::nullopt;
}

}  // namespace rostermill
