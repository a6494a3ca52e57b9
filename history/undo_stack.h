#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "league/league_data.h"

namespace rostermill {

/// Whether two leagues hold the same, the palette aside. This decides what counts as changed: the
/// caller keeps a copy of the league as it was loaded or last saved and compares. Takes about 10
/// microseconds.
bool SameLeague(const LeagueData& a, const LeagueData& b);

/// What a step has changed, so that what is on view can be shown anew.
struct Touched {
  ByTeam<BySlot<bool>> Players;  ///< [team][slot]: a rating, a duty, the photo, name or number
  ByTeam<bool> Teams;            ///< the team's texts, formation, colors or plays
  bool AllStars = false;
  bool Schedule = false;
  bool GameTexts = false;  ///< the year and the texts of the settings

  bool Nothing() const { return *this == Touched{}; }
  bool operator==(const Touched&) const = default;
};

/// The steps that can be undone and redone. Only what a step changed is stored: about 1 KB for one
/// that changes one player. Every change of the league has to go through Change; one that doesn't
/// is overwritten where a step holds the same part, and left alone elsewhere.
class UndoStack {
 public:
  /// The oldest step is dropped when there are more.
  static constexpr std::size_t Limit = 200;

  /// Runs `change` on the league and records what it changed as one step. Drops the steps that
  /// could be redone. A change that alters nothing makes no step and drops nothing. When `change`
  /// throws, the league is as before and the exception goes on to the caller.
  /// `mark` is any number but 0 by which the caller recognizes the step in MarksInForce.
  Touched Change(LeagueData& league, std::string description,
                 const std::function<void(LeagueData&)>& change, int mark = 0);

  /// Without a step, these change nothing and return an empty Touched.
  Touched Undo(LeagueData& league);
  Touched Redo(LeagueData& league);

  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < steps_.size(); }
  /// The description of the step that Undo or Redo would take; empty without one.
  std::string UndoDescription() const;
  std::string RedoDescription() const;

  /// The marks of the steps that are done and not undone, the oldest first; those of dropped
  /// steps and of marked changes that altered nothing are among them.
  std::vector<int> MarksInForce() const;

  /// Drops all steps and marks, for a league that is loaded or unloaded.
  void Clear();

 private:
  template <typename Part>
  struct Changed {
    std::int16_t Place;
    Part Value;  ///< while the step is done, the value before it; else the one after it
  };
  template <typename Part>
  using ChangedParts = std::vector<Changed<Part>>;

  struct Step {
    std::string Description;
    int Mark = 0;
    std::tuple<ChangedParts<QBRec>, ChangedParts<SkillRec>, ChangedParts<LineRec>,
               ChangedParts<DefenseRec>, ChangedParts<KickRec>, ChangedParts<NameRec>,
               ChangedParts<TeamRec>, ChangedParts<std::int16_t>, ChangedParts<ProbowlRec>,
               ChangedParts<ScheduleWeek>, ChangedParts<FixedText<4>>, ChangedParts<FixedText<3>>>
        Parts;
  };

  static Touched Record(Step& step, const LeagueData& before, const LeagueData& after);
  static Touched Swap(Step& step, LeagueData& league);
  void Push(Step step);

  std::deque<Step> steps_;
  std::size_t done_ = 0;  ///< the first of steps_ that are done
  std::vector<int> settled_marks_;
};

}  // namespace rostermill
