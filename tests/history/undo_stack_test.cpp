#include "history/undo_stack.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

#include "tests/support/damage.h"
#include "tests/support/random_league.h"
#include <malloc.h>

// There with the address sanitizer, which serves all memory then.
// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace rostermill::test {
namespace {

std::size_t MemoryInUse() {
  if (__sanitizer_get_current_allocated_bytes != nullptr) {
    return __sanitizer_get_current_allocated_bytes();
  }
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

class UndoStackTest : public testing::Test {
 protected:
  void RenameTeam(const std::string& city, int mark = 0) {
    stack_.Change(
        league_, "Team: " + city, [&](LeagueData& league) { league.TeamData[7].City = city; },
        mark);
  }

  LeagueData league_ = SampleLeague();
  const LeagueData loaded_ = league_;
  UndoStack stack_;
};

TEST_F(UndoStackTest, AStepOfEachPartIsUndoneAndRedoneAndSaysWhatItTouches) {
  struct Case {
    void (*Change)(LeagueData&);
    void (*Expect)(Touched&);
  };
  const Case cases[] = {
      {[](auto& l) { l.QBData[1][2].Accuracy ^= 1; }, [](auto& t) { t.Players[1][2] = true; }},
      {[](auto& l) { l.SkillData[2][1].KickReturner ^= 1; },
       [](auto& t) { t.Players[2][3] = true; }},
      {[](auto& l) { l.SkillData[28][10].Face ^= 1; }, [](auto& t) { t.Players[28][12] = true; }},
      {[](auto& l) { l.LineData[3][1].HittingPower ^= 1; },
       [](auto& t) { t.Players[3][13] = true; }},
      {[](auto& l) { l.DefenseData[4][11].Quickness ^= 1; },
       [](auto& t) { t.Players[4][28] = true; }},
      {[](auto& l) { l.KickData[5][1].AvoidKickBlock ^= 1; },
       [](auto& t) { t.Players[5][29] = true; }},
      {[](auto& l) { l.NameData[6][17].FirstName += "x"; },
       [](auto& t) { t.Players[6][17] = true; }},
      {[](auto& l) { l.NameData[28][30].JerseyNumber = "5"; },
       [](auto& t) { t.Players[28][30] = true; }},
      {[](auto& l) { l.TeamData[9].ConfChampColors[4] ^= 1; }, [](auto& t) { t.Teams[9] = true; }},
      {[](auto& l) { l.TeamPlays[10][8] ^= 1; }, [](auto& t) { t.Teams[10] = true; }},
      {[](auto& l) { l.TeamPlays[11][1] ^= 1; }, [](auto& t) { t.Teams[11] = true; }},
      {[](auto& l) { l.ProbowlData[2][30].Slot ^= 1; }, [](auto& t) { t.AllStars = true; }},
      {[](auto& l) { l.ScheduleData[16].GameCount ^= 1; }, [](auto& t) { t.Schedule = true; }},
      {[](auto& l) { l.ScheduleData[0].Games[13].AwayTeam ^= 1; },
       [](auto& t) { t.Schedule = true; }},
      {[](auto& l) { l.RosterYear = "1907"; }, [](auto& t) { t.GameTexts = true; }},
      {[](auto& l) { l.LeagueText[3] = "ZQ"; }, [](auto& t) { t.GameTexts = true; }},
  };
  for (const Case& c : cases) {
    const std::string part = "part " + std::to_string(&c - cases);
    SCOPED_TRACE(part);
    Touched expected;
    c.Expect(expected);
    EXPECT_EQ(stack_.Change(league_, part, c.Change), expected);
    EXPECT_EQ(stack_.UndoDescription(), part);
    EXPECT_EQ(stack_.RedoDescription(), "");
    const LeagueData changed = league_;
    EXPECT_FALSE(SameLeague(league_, loaded_));
    EXPECT_EQ(stack_.Undo(league_), expected);
    EXPECT_EQ(league_, loaded_);
    EXPECT_TRUE(SameLeague(league_, loaded_));
    EXPECT_EQ(stack_.RedoDescription(), part);
    EXPECT_TRUE(stack_.Undo(league_).Nothing());
    EXPECT_EQ(stack_.Redo(league_), expected);
    EXPECT_EQ(league_, changed);
    EXPECT_TRUE(stack_.Redo(league_).Nothing());
    stack_.Undo(league_);
  }
}

TEST_F(UndoStackTest, WhatFailsOrDoesNotChangeTheLeagueIsNoStepAndKeepsTheOneToBeRedone) {
  RenameTeam("Alpha");
  stack_.Undo(league_);
  RenameTeam(loaded_.TeamData[7].City);
  EXPECT_THROW(stack_.Change(league_, "Paste",
                             [](LeagueData& league) {
                               league.TeamData[1].City = "half";
                               throw std::runtime_error("no");
                             }),
               std::runtime_error);
  EXPECT_EQ(league_, loaded_);
  stack_.Change(league_, "Palette", [](LeagueData& league) { league.PaletteData[6].Red ^= 1; });
  EXPECT_NE(league_.PaletteData, loaded_.PaletteData);
  EXPECT_TRUE(SameLeague(league_, loaded_));
  EXPECT_FALSE(stack_.CanUndo());
  EXPECT_EQ(stack_.RedoDescription(), "Team: Alpha");
}

TEST_F(UndoStackTest, TwoHundredStepsAreKept) {
  for (int i = 1; i <= 203; ++i) RenameTeam("Town " + std::to_string(i));
  int undone = 0;
  while (stack_.CanUndo()) stack_.Undo(league_), ++undone;
  EXPECT_EQ(undone, 200);
  EXPECT_EQ(league_.TeamData[7].City, "Town 3");
  for (int i = 0; i < 200; ++i) stack_.Redo(league_);
  EXPECT_EQ(league_.TeamData[7].City, "Town 203");
  EXPECT_FALSE(stack_.CanRedo());
  stack_.Clear();
  EXPECT_FALSE(stack_.CanRedo());
  EXPECT_FALSE(stack_.CanUndo());
  EXPECT_EQ(league_.TeamData[7].City, "Town 203");
}

TEST_F(UndoStackTest, AnyOrderOfStepsGoesBackToTheLeaguesThatWere) {
  std::mt19937 random(20'260'730);
  std::vector<LeagueData> past{loaded_};
  std::size_t now = 0;
  for (int i = 0; i < 120; ++i) {
    const auto pick = random() % 5;
    if (pick < 2 && now > 0) {
      stack_.Undo(league_), --now;
    } else if (pick == 2 && now + 1 < past.size()) {
      stack_.Redo(league_), ++now;
    } else {
      const LeagueData other = RandomLeague(random);
      stack_.Change(league_, "Any", [&](LeagueData& league) {
        const auto palette = league.PaletteData;
        if (pick == 4) league = other;
        league.PaletteData = palette;
        league.NameData[3][4] = other.NameData[5][6];
        league.ScheduleData[7] = other.ScheduleData[7];
      });
      past.resize(++now);
      past.push_back(league_);
    }
    ASSERT_EQ(league_, past[now]) << i;
  }
  while (stack_.CanUndo()) stack_.Undo(league_);
  EXPECT_EQ(league_, loaded_);
}

TEST_F(UndoStackTest, AStepOfOnePlayerCostsAtMost16KB) {
  const auto change = [this](int i) {
    const std::string name = "a name far longer than a string has room for " + std::to_string(i);
    stack_.Change(league_, "Save Player: " + name, [&](LeagueData& league) {
      league.NameData[9][9] = {name, name, name};
      league.SkillData[9][7].Receptions ^= 1;
      for (SkillRec& rec : league.SkillData[9]) rec.KickReturner ^= 1;
    });
  };
  change(0);
  const std::size_t before = MemoryInUse();
  for (int i = 1; i <= 100; ++i) change(i);
  const std::size_t after = MemoryInUse();
  ASSERT_GT(after, before + 100 * 200) << "the measurement doesn't see the steps";
  EXPECT_LE(after - before, 100 * 16 * 1024u);
}

// Would lose unsaved changes that were brought back, undone, and not saved.
TEST_F(UndoStackTest, MarksAreInForceWhileTheirStepIsDone) {
  using Marks = std::vector<int>;
  RenameTeam("Alpha", 4);
  RenameTeam("Beta");
  RenameTeam("Gamma", 9);
  EXPECT_EQ(stack_.MarksInForce(), (Marks{4, 9}));
  stack_.Undo(league_);
  EXPECT_EQ(stack_.MarksInForce(), Marks{4});
  stack_.Redo(league_);
  EXPECT_EQ(stack_.MarksInForce(), (Marks{4, 9}));
  stack_.Undo(league_);
  RenameTeam("Delta");
  for (int i = 1; i <= 200; ++i) RenameTeam("Town " + std::to_string(i));
  EXPECT_EQ(stack_.MarksInForce(), Marks{4}) << "a dropped step stays in force";
  RenameTeam("Town 200", 6);
  EXPECT_EQ(stack_.MarksInForce(), (Marks{4, 6}));
  stack_.Clear();
  EXPECT_EQ(stack_.MarksInForce(), Marks{});
}

}  // namespace
}  // namespace rostermill::test
