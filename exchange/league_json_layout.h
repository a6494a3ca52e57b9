#pragma once

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

#include "league/league_tables.h"
#include "league/ratings.h"
#include "league/team_data.h"

namespace rostermill {

// The layout of a league's JSON, the same for writing and reading. A Node is the place of one value
// in the JSON (see JsonWriterNode and JsonReaderNode); the league is const where it is written.

/// No text of an image is longer, since its ends are two words.
inline constexpr std::size_t LongestImageText = 0xFFFF;

/// "rushingPower" for "Rushing Power".
inline std::string JsonKey(std::string_view name) {
  std::string key(name);
  std::erase(key, ' ');
  key.front() = LowerChar(key.front());
  return key;
}

inline std::string_view GroupName(PositionGroup group) {
  constexpr std::array<std::string_view, 5> names{"QB", "Skill", "Line", "Defense", "Kick"};
  return names[static_cast<std::size_t>(group)];
}

/// `index` is the player's place in `table`, that of his group in his team.
template <typename Fields, typename Name, typename Table>
void DescribePlayer(Fields& fields, int slot, Name& name, Table& table, int index) {
  auto& rec = table[index];
  using Rec = std::decay_t<decltype(rec)>;
  fields["label"].Constant(SlotLabels[slot]);
  fields["group"].Constant(GroupName(GroupOfSlot(slot)));
  fields["firstName"].Text(name.FirstName, LongestImageText);
  fields["lastName"].Text(name.LastName, LongestImageText);
  fields["jerseyNumber"].Jersey(name.JerseyNumber);
  fields["face"].Number(rec.Face, 0, 255);
  fields["ratings"].Object([&](auto& ratings) {
    for (const auto& rating : RatingsOf<Rec>) {
      ratings[JsonKey(rating.Name)].Number(rec.*rating.Code, 0, RatingValues.last);
    }
  });
  if constexpr (std::is_same_v<Rec, SkillRec>) {
    fields["kickReturner"].Duty(table, index, &SkillRec::KickReturner);
    fields["puntReturner"].Duty(table, index, &SkillRec::PuntReturner);
  }
}

template <typename Fields, typename League>
void DescribeTeam(Fields& fields, League& league, int team) {
  constexpr int last_color = 255;  // the palette has 64, an image's byte any
  constexpr int last_play = 9;     // as a load leaves it; 8 and 9 name no play
  auto& rec = league.TeamData[team];
  fields["city"].Text(rec.City, LongestImageText);
  fields["nickname"].Text(rec.Nickname, LongestImageText);
  fields["abbreviation"].PaddedText(rec.Abbreviation, AbbreviationLength);
  fields["formation"].Number(rec.Formation, 0, 2);
  const auto numbers = [](int largest) {
    return [largest](auto node, auto& number) { node.Number(number, 0, largest); };
  };
  fields["colors"].Array(rec.TeamColors, numbers(last_color));
  fields["divChampColors"].Array(rec.DivChampColors, numbers(last_color));
  fields["confChampColors"].Array(rec.ConfChampColors, numbers(last_color));
  fields["plays"].Array(league.TeamPlays[team], numbers(last_play));
  fields["players"].ArrayById("slot", SlotCount, [&](auto& player, int slot) {
    int first = 1;
    ForEachPlayerTable(league, team, [&](auto& table) {
      const int index = slot - first + 1;
      if (index >= table.first && index <= table.last) {
        DescribePlayer(player, slot, league.NameData[team][slot], table, index);
      }
      first += table.count;
    });
  });
}

template <typename Node, typename Week>
void DescribeWeek(Node node, Week& week) {
  node.WholeArray(week.Games, week.GameCount, [](auto game_node, auto& game) {
    constexpr int last_team_number = 29;  // 28 and 29 are the all-star sides
    game_node.Object([&](auto& fields) {
      fields["away"].Number(game.AwayTeam, 0, last_team_number);
      fields["home"].Number(game.HomeTeam, 0, last_team_number);
    });
  });
}

template <typename Node, typename Roster>
void DescribeAllStars(Node node, Roster& roster) {
  node.Array(roster, [](auto place_node, auto& place) {
    constexpr int largest = 256;  // a byte counted from 1; above the slots or teams it is nobody
    place_node.Object([&](auto& fields) {
      fields["team"].Number(place.Team, 1, largest);
      fields["slot"].Number(place.Slot, 1, largest);
    });
  });
}

template <typename Node, typename League>
void DescribeLeague(Node node, League& league) {
  node.Object([&](auto& fields) {
    fields["rosterYear"].PaddedText(league.RosterYear, 4);
    fields["leagueText"].Array(league.LeagueText,
                               [](auto text_node, auto& text) { text_node.PaddedText(text, 3); });
    fields["teams"].ArrayById("index", TeamCount, [&](auto& team_fields, int team) {
      DescribeTeam(team_fields, league, team);
    });
    fields["schedule"].Array(league.ScheduleData,
                             [](auto week_node, auto& week) { DescribeWeek(week_node, week); });
    fields["probowl"].Array(league.ProbowlData, [](auto roster_node, auto& roster) {
      DescribeAllStars(roster_node, roster);
    });
  });
}

}  // namespace rostermill
