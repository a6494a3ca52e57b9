#include "history/league_history.h"

#include <gtest/gtest.h>

#include <chrono>

#include "league/load_image.h"
#include "league/save_image.h"
#include "tests/support/fake_host.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

class LeagueHistoryTest : public testing::Test {
 protected:
  LeagueHistoryTest() {
    session_.ImagePath = folder_.Path("league.nes");
    WriteFile(session_.ImagePath, SampleBytes());
  }

  LoadOutcome Load(LeagueHistory& history, const std::string& app_dir = BinFolder()) {
    session_.AppDir = app_dir;
    return LoadImage(session_, host_, history);
  }

  void RenameTeam(const std::string& city) {
    session_.Change("a city", [&](LeagueData& league) { league.TeamData[1].City = city; });
  }

  TempFolder folder_;
  std::string base_ = folder_.Path("kept");
  LeagueSession session_;
  FakeHost host_;
};

TEST_F(LeagueHistoryTest, ALoadThatEndsTheProgramLosesNoUnsavedChanges) {
  {
    LeagueHistory history(session_, base_);
    ASSERT_EQ(Load(history), LoadOutcome::Loaded);
    RenameTeam("CHANGED");
    EXPECT_EQ(Load(history, folder_.Path("no palette/")), LoadOutcome::EndProgram);
    history.KeepUnsaved();
  }
  LeagueHistory history(session_, base_);
  ASSERT_EQ(Load(history), LoadOutcome::Loaded);
  ASSERT_EQ(history.LeftStates().size(), 1U);
  const LeagueData kept = history.LeagueOfLeftState(history.LeftStates()[0].Number);
  EXPECT_EQ(kept.TeamData[1].City, "CHANGED");
}

TEST_F(LeagueHistoryTest, ChangesThatCanNotBeKeptAreNoSecret) {
  WriteFile(base_, std::string("no folder"));
  LeagueHistory history(session_, base_);
  ASSERT_EQ(Load(history), LoadOutcome::Loaded);
  RenameTeam("CHANGED");
  EXPECT_TRUE(history.KeepUnsaved());
  history.BeforeLoad({});
  EXPECT_NE(history.KeepingFailure(), "");
  EXPECT_EQ(SaveImage(session_, host_, history), SaveOutcome::Saved);
  EXPECT_EQ(SaveImage(session_, host_, history), SaveOutcome::Saved);
  EXPECT_EQ(host_.messages.size(), 1U) << "told once, after the save";
}

TEST_F(LeagueHistoryTest, OldVersionsGoSoonAfterASave) {
  LeagueHistory history(session_, base_);
  ASSERT_EQ(Load(history), LoadOutcome::Loaded);
  for (int year = 1; year <= 33; ++year) {
    RenameTeam("YEAR " + std::to_string(year));
    ASSERT_EQ(SaveImage(session_, host_, history), SaveOutcome::Saved);
  }
  history.KeepUnsaved();
  const std::vector<Version> versions = history.Versions();
  ASSERT_EQ(versions.size(), 31U) << "30 and the first state";
  EXPECT_EQ(versions.front().Number, 33);
  EXPECT_TRUE(versions.back().FirstState);
}

TEST(LocalTimeText, ShowsTheDateOnlyForAnotherDay) {
  using std::chrono::days, std::chrono::hours;
  const std::chrono::sys_seconds noon =
      std::chrono::sys_days{std::chrono::year{2026} / 11 / 26} + hours(12);
  EXPECT_EQ(LocalTimeText(noon, noon + hours(1)).size(), std::string("12:00").size());
  const std::string other_day = LocalTimeText(noon, noon + days(2));
  EXPECT_TRUE(other_day.starts_with("2026-11-2")) << other_day;
  EXPECT_EQ(LocalTimeText(noon - days(365), noon), LocalTimeText(noon - days(365), noon + days(1)));
}

}  // namespace
}  // namespace rostermill::test
