#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/lookup.h"
#include "exchange/player_table.h"

namespace rostermill {

/// A column's heading where there is little room: "RS", "KR", "Pos".
std::string_view ShortHeading(const Column& column);

/// What people type to find players: words, all of which have to be in the player's name, team,
/// position or number, and conditions on columns, "RS>=69", "KR=yes". Texts are Latin-1, and case
/// doesn't count.
class PlayerFilter {
 public:
  /// Reads what is typed. If some of it isn't understood, Problem() says why.
  explicit PlayerFilter(std::string_view text = {});

  /// Empty if the whole text is understood; UTF-8.
  const std::string& Problem() const { return problem_; }
  bool Accepts(const LeagueData& league, PlayerPlace player) const;

 private:
  enum class Relation { Equal, Unequal, Below, AtMost, Above, AtLeast };
  struct Condition {
    const Column* Of = nullptr;
    Relation Is = Relation::Equal;
    std::string Text;
    std::optional<int> Number;
  };

  void Read(const std::string& token);
  bool Holds(const Condition& condition, const LeagueData& league, PlayerPlace player) const;

  std::vector<std::string> words_;
  std::vector<Condition> conditions_;
  std::string problem_;
};

}  // namespace rostermill
