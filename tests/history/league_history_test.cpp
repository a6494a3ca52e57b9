#include "history/league_history.h"

#include <gtest/gtest.h>

#include "league/load_image.h"
#include "league/save_image.h"
#include "tests/support/fake_host.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

/// Gives the session a copy of the sample to load.
void PrepareSample(LeagueSession& session, const TempFolder& folder) {
  session.AppDir = BinFolder();
  session.ImagePath = folder.Path("league.nes");
  WriteFile(session.ImagePath, SampleBytes());
}

TEST(LeagueHistory, ALoadThatEndsTheProgramLosesNoUnsavedChanges) {
  const TempFolder folder;
  const std::string base = folder.Path("kept");
  LeagueSession session;
  session.ImagePath = folder.Path("league.nes");
  WriteFile(session.ImagePath, SampleBytes());
  FakeHost host;
  const auto load = [&](LeagueHistory& history, const std::string& app_dir) {
    session.AppDir = app_dir;
    return LoadImage(session, host, history);
  };
  {
    LeagueHistory history(session, base);
    ASSERT_EQ(load(history, BinFolder()), LoadOutcome::Loaded);
    session.Change("a city", [](LeagueData& league) { league.TeamData[1].City = "CHANGED"; });
    EXPECT_EQ(load(history, folder.Path("no palette/")), LoadOutcome::EndProgram);
    history.KeepUnsaved();
  }
  LeagueHistory history(session, base);
  ASSERT_EQ(load(history, BinFolder()), LoadOutcome::Loaded);
  ASSERT_EQ(history.LeftStates().size(), 1U);
  const LeagueData kept = history.LeagueOfLeftState(history.LeftStates()[0].Number);
  EXPECT_EQ(kept.TeamData[1].City, "CHANGED");
}

TEST(LeagueHistory, ChangesThatCanNotBeKeptAreNoSecret) {
  const TempFolder folder;
  WriteFile(folder.Path("kept"), std::string("no folder"));
  LeagueSession session;
  FakeHost host;
  PrepareSample(session, folder);
  LeagueHistory history(session, folder.Path("kept"));
  ASSERT_EQ(LoadImage(session, host, history), LoadOutcome::Loaded);
  session.Change("a city", [](LeagueData& league) { league.TeamData[1].City = "CHANGED"; });
  EXPECT_TRUE(history.KeepUnsaved());
  history.BeforeLoad({});
  EXPECT_NE(history.KeepingFailure(), "");
  EXPECT_EQ(SaveImage(session, host, history), SaveOutcome::Saved);
  EXPECT_EQ(SaveImage(session, host, history), SaveOutcome::Saved);
  EXPECT_EQ(host.messages.size(), 1U) << "told once, after the save";
}

TEST(LeagueHistory, OldVersionsGoSoonAfterASave) {
  const TempFolder folder;
  LeagueSession session;
  FakeHost host;
  PrepareSample(session, folder);
  LeagueHistory history(session, folder.Path("kept"));
  ASSERT_EQ(LoadImage(session, host, history), LoadOutcome::Loaded);
  for (int year = 1; year <= 33; ++year) {
    session.Change("a city", [year](LeagueData& league) {
      league.TeamData[1].City = "YEAR " + std::to_string(year);
    });
    ASSERT_EQ(SaveImage(session, host, history), SaveOutcome::Saved);
  }
  history.KeepUnsaved();
  const std::vector<Version> versions = history.Versions();
  ASSERT_EQ(versions.size(), 31U) << "30 and the first state";
  EXPECT_EQ(versions.front().Number, 33);
  EXPECT_TRUE(versions.back().FirstState);
}

}  // namespace
}  // namespace rostermill::test
