#include "history/undo_stack.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "history/league_parts.h"
#include "league/ratings.h"

namespace rostermill {

namespace {

struct Player {
  int Team, Slot;
};

/// The players in the table of a group, in the order of its places.
std::vector<Player> PlayersOf(PositionGroup group) {
  std::vector<Player> players;
  for (int team = 1; team <= TeamCount; ++team) {
    for (int slot = 1; slot <= SlotCount; ++slot) {
      if (GroupOfSlot(slot) == group) players.push_back({team, slot});
    }
  }
  return players;
}

template <PositionGroup Group>
void TouchPlayer(Touched& touched, int place) {
  static const std::vector<Player> players = PlayersOf(Group);
  const Player player = players.at(static_cast<std::size_t>(place));
  touched.Players[player.Team][player.Slot] = true;
}

void Touch(Touched& touched, int place, const QBRec&) {
  TouchPlayer<PositionGroup::QB>(touched, place);
}
void Touch(Touched& touched, int place, const SkillRec&) {
  TouchPlayer<PositionGroup::Skill>(touched, place);
}
void Touch(Touched& touched, int place, const LineRec&) {
  TouchPlayer<PositionGroup::Line>(touched, place);
}
void Touch(Touched& touched, int place, const DefenseRec&) {
  TouchPlayer<PositionGroup::Defense>(touched, place);
}
void Touch(Touched& touched, int place, const KickRec&) {
  TouchPlayer<PositionGroup::Kick>(touched, place);
}
void Touch(Touched& touched, int place, const NameRec&) {
  touched.Players[1 + place / SlotCount][1 + place % SlotCount] = true;
}
void Touch(Touched& touched, int place, const TeamRec&) {
  touched.Teams[1 + place] = true;
}
void Touch(Touched& touched, int place, std::int16_t /*play*/) {
  using Plays = std::remove_reference_t<decltype(std::declval<LeagueData&>().TeamPlays[1])>;
  touched.Teams[1 + place / Plays::count] = true;
}
void Touch(Touched& touched, int /*place*/, const ProbowlRec&) {
  touched.AllStars = true;
}
void Touch(Touched& touched, int /*place*/, const ScheduleWeek&) {
  touched.Schedule = true;
}
template <std::size_t N>
void Touch(Touched& touched, int /*place*/, const FixedText<N>&) {
  touched.GameTexts = true;
}

}  // namespace

bool SameLeague(const LeagueData& a, const LeagueData& b) {
  bool same = true;
  ForEachPart([&same](int, const auto& x, const auto& y) { same = same && x == y; }, a, b);
  return same;
}

Touched UndoStack::Record(Step& step, const LeagueData& before, const LeagueData& after) {
  Touched touched;
  const auto compare = [&](int place, const auto& was, const auto& is) {
    using Part = std::decay_t<decltype(was)>;
    if (was == is) return;
    std::get<ChangedParts<Part>>(step.Parts).push_back({static_cast<std::int16_t>(place), was});
    Touch(touched, place, was);
  };
  ForEachPart(compare, before, after);
  std::apply([](auto&... parts) { (parts.shrink_to_fit(), ...); }, step.Parts);
  return touched;
}

Touched UndoStack::Swap(Step& step, LeagueData& league) {
  Touched touched;
  const auto swap = [&](int place, auto& part) {
    using Part = std::decay_t<decltype(part)>;
    auto& changed = std::get<ChangedParts<Part>>(step.Parts);
    const auto found =
        std::lower_bound(changed.begin(), changed.end(), place,
                         [](const Changed<Part>& item, int wanted) { return item.Place < wanted; });
    if (found == changed.end() || found->Place != place) return;
    std::swap(found->Value, part);
    Touch(touched, place, part);
  };
  ForEachPart(swap, league);
  return touched;
}

void UndoStack::Push(Step step) {
  steps_.push_back(std::move(step));
  // The steps that could be redone lie between the done ones and the new one.
  steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end() - 1);
  ++done_;
  if (steps_.size() <= Limit) return;
  if (const int mark = steps_.front().Mark; mark != 0) settled_marks_.push_back(mark);
  steps_.pop_front();
  --done_;
}

Touched UndoStack::Change(LeagueData& league, std::string description,
                          const std::function<void(LeagueData&)>& change, int mark) {
  const auto before = std::make_unique<LeagueData>(league);
  try {
    change(league);
    Step step{std::move(description), mark, {}};
    const Touched touched = Record(step, *before, league);
    if (!touched.Nothing()) {
      Push(std::move(step));
    } else if (mark != 0) {
      settled_marks_.push_back(mark);
    }
    return touched;
  } catch (...) {
    league = std::move(*before);
    throw;
  }
}

Touched UndoStack::Undo(LeagueData& league) {
  return CanUndo() ? Swap(steps_[--done_], league) : Touched{};
}

Touched UndoStack::Redo(LeagueData& league) {
  return CanRedo() ? Swap(steps_[done_++], league) : Touched{};
}

std::string UndoStack::UndoDescription() const {
  return CanUndo() ? steps_[done_ - 1].Description : std::string();
}

std::string UndoStack::RedoDescription() const {
  return CanRedo() ? steps_[done_].Description : std::string();
}

std::vector<int> UndoStack::MarksInForce() const {
  std::vector<int> marks = settled_marks_;
  for (std::size_t i = 0; i < done_; ++i) {
    if (steps_[i].Mark != 0) marks.push_back(steps_[i].Mark);
  }
  return marks;
}

void UndoStack::Clear() {
  steps_.clear();
  steps_.shrink_to_fit();
  done_ = 0;
  settled_marks_.clear();
}

}  // namespace rostermill
