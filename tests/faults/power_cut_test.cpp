#include "tests/faults/power_cut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <set>
#include <utility>

#include "history/league_history.h"
#include "history/unsaved_store.h"
#include "history/version_store.h"
#include "league/load_image.h"
#include "league/save_image.h"
#include "tests/support/fake_host.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;
namespace fs = std::filesystem;

/// An image that a link leads to, and the folder of its versions, which isn't there yet.
class PowerCut : public testing::Test {
 protected:
  PowerCut() {
    fs::create_directory(root_ + "/real");
    fs::create_symlink("real/league.nes", link_);
    WriteFile(file_, SampleBytes());
    session_->ImagePath = link_;
  }

  /// Gives a team this city and saves.
  void Save(ImageWatch& watch, const std::string& city) {
    FakeHost host;
    session_->Change("Edit Team", [&](LeagueData& league) { league.TeamData[3].City = city; });
    EXPECT_EQ(SaveImage(*session_, host, watch), SaveOutcome::Saved);
    EXPECT_EQ(host.messages, Texts{});
  }

  void Load(ImageWatch& watch) {
    FakeHost host;
    EXPECT_EQ(LoadImage(*session_, host, watch), LoadOutcome::Loaded);
    EXPECT_EQ(host.messages, Texts{});
  }

  std::set<Bytes> Versions() const {
    std::set<Bytes> versions;
    for (const Version& version : versions_.List(file_)) {
      versions.insert(versions_.Read(file_, version.Number).Bytes);
    }
    return versions;
  }

  /// What was left unsaved.
  Texts Row() const {
    const UnsavedStore store(base_, file_);
    Texts row;
    for (const UnsavedState& state : store.List()) row.push_back(store.Read(state.Number));
    return row;
  }

  /// Saves as an editor does and cuts the power. `unsaved` says whether the editor has kept the
  /// change before.
  void WalkSave(bool unsaved) {
    const Bytes old = FileBytes(file_);
    const std::set<Bytes> earlier = Versions();
    auto editor = std::make_unique<LeagueHistory>(*session_, base_);
    Load(*editor);
    if (unsaved) {
      session_->Change("Edit", [](LeagueData& league) { league.TeamData[3].City = "NEWTON"; });
      editor->KeepUnsaved();
      editor->BeforeLoad(link_);  // waits until it is kept
    }
    Bytes saved;
    const auto act = [&] {
      Save(*editor, "NEWTON");
      editor->KeepUnsaved();
      editor.reset();
      saved = FileBytes(file_);
    };
    std::set<std::pair<bool, Texts>> opened;
    const int cases = WalkPowerCuts(root_, act, [&](bool done) {
      EXPECT_TRUE(fs::is_symlink(link_));
      const Bytes now = FileBytes(file_);
      EXPECT_TRUE(now == saved || (now == old && !done)) << "the image is lost or not saved";
      std::set<Bytes> versions = Versions();
      std::set<Bytes> known = earlier;
      EXPECT_TRUE(std::ranges::includes(versions, known)) << "an earlier version is gone";
      known.insert(old);
      EXPECT_TRUE(std::ranges::includes(known, versions)) << "a version has other bytes";
      EXPECT_TRUE(now == old || versions.contains(old)) << "the old image is nowhere";
      // Reading a state takes its time, and it is the same in many cases.
      if (opened.emplace(now == old, Row()).second) ExpectToOpen(unsaved && now == old);

      ImageWatch nobody;
      Load(nobody);
      LeagueHistory next(*session_, base_);
      Save(next, "AGAIN");
      versions_.DropOld(file_);
      OpenImage image(FileBytes(file_));
      EXPECT_EQ(ReadLeague(image).TeamData[3].City, "AGAIN");
      versions.insert(now);
      EXPECT_EQ(Versions(), versions);
    });
    EXPECT_GT(cases, 100);
  }

  /// The image, and what is unsaved with it.
  void ExpectToOpen(bool with_changes) {
    LeagueHistory history(*session_, base_);
    Load(history);
    EXPECT_EQ(history.KeepingFailure(), "");
    ASSERT_EQ(history.LeftStates().size(), with_changes ? 1u : 0u);
    if (!with_changes) return;
    history.BringBackLeftState(history.LeftStates()[0]);
    EXPECT_EQ(session_->League().TeamData[3].City, "NEWTON");
    history.Undo();
  }

  TempFolder folder_;
  std::string root_ = fs::canonical(folder_.Path());
  std::string link_ = root_ + "/link.nes";
  std::string file_ = root_ + "/real/league.nes";
  std::string base_ = root_ + "/share/versions";
  VersionStore versions_{base_};
  std::unique_ptr<LeagueSession> session_ = SampleSession();
};

TEST_F(PowerCut, ASaveLeavesTheOldImageOrTheNewOne) {
  ImageWatch nobody;
  const Bytes old = FileBytes(file_);
  Bytes saved;
  const auto act = [&] {
    Save(nobody, "NEWTON");
    saved = FileBytes(file_);
  };
  const int cases = WalkPowerCuts(root_, act, [&](bool done) {
    EXPECT_TRUE(fs::is_symlink(link_));
    const Bytes now = FileBytes(file_);
    EXPECT_TRUE(now == saved || (now == old && !done));
    Load(nobody);
    Save(nobody, "AGAIN");
    EXPECT_NE(FileBytes(file_), now);
  });
  EXPECT_GT(cases, 100);
}

TEST_F(PowerCut, TheFirstSaveKeepsWhatItReplaces) {
  WalkSave(false);
}

TEST_F(PowerCut, ALaterSaveKeepsWhatItReplaces) {
  {
    LeagueHistory editor(*session_, base_);
    Load(editor);
    Save(editor, "OLDHAM");
  }
  WalkSave(true);
}

/// Also one that is kept again, which only gets another name, when older ones then go.
TEST_F(PowerCut, AVersionIsOnTheDiskBeforeAnotherGoes) {
  const VersionStore store(base_, {2, 500'000'000});
  const auto keep = [&](const Bytes& bytes) {
    store.Keep(file_, {bytes, bytes.size()}, "before a save");
    store.DropOld(file_);
  };
  for (const Bytes& bytes : {Bytes{1}, Bytes{2}, Bytes{3}}) keep(bytes);
  for (const Bytes& bytes : {Bytes{2}, Bytes{4}, Bytes{2}, Bytes{5}}) {
    SCOPED_TRACE(testing::PrintToString(bytes));
    const auto before = Versions();
    std::set<Bytes> after;
    const auto act = [&] {
      keep(bytes);
      after = Versions();
    };
    const int cases = WalkPowerCuts(root_, act, [&](bool done) {
      auto now = Versions();
      EXPECT_TRUE(now.contains(bytes) || (now == before && !done)) << testing::PrintToString(now);
      now.insert(bytes);
      EXPECT_TRUE(std::ranges::includes(now, after)) << testing::PrintToString(now);
      keep({6});
      EXPECT_TRUE(Versions().contains({6}));
    });
    EXPECT_GT(cases, 1);
  }
}

/// A sync that fails leaves names that may not be on the disk. The next try must not rely on them.
TEST_F(PowerCut, AVersionIsKeptForGoodAfterATryThatFailed) {
  const Bytes bytes{'o', 'l', 'd'};
  const auto keep = [&] { versions_.Keep(file_, {bytes, bytes.size()}, "before a save"); };
  const auto check = [&](bool done) {
    const std::set<Bytes> now = Versions();
    EXPECT_TRUE(now == std::set{bytes} || (now.empty() && !done));
  };
  int failed = 0;
  // Three folders and two files that are new, and two renames.
  constexpr int syncs = 7;
  for (int at = 1; at <= syncs; ++at) {
    SCOPED_TRACE(at);
    fs::remove_all(root_ + "/share");
    const auto act = [&] {
      try {
        keep();
      } catch (const FileError&) {
        ++failed;
      }
      keep();
    };
    WalkPowerCuts(root_, act, check, {{"fsync", at, false, Effect::Error, EIO}});
  }
  EXPECT_EQ(failed, syncs);
}

/// The first state of an editor, for which the folders are made, and one in its place.
TEST_F(PowerCut, AStateStaysUntilTheNextIsOnTheDisk) {
  const auto walk = [&](UnsavedStore& editor, const std::string& state, const Texts& before,
                        const Texts& after) {
    const auto act = [&] { editor.Keep(state); };
    const int cases = WalkPowerCuts(root_, act, [&](bool done) {
      Texts now = Row();
      EXPECT_TRUE(now == after || (now == before && !done)) << now.size();
      UnsavedStore(base_, file_).Keep("tomorrow");
      now.insert(now.begin(), "tomorrow");
      EXPECT_EQ(Row(), now);
    });
    EXPECT_GT(cases, 10);
  };
  const std::string evening(300'000, 'e');
  UnsavedStore early(base_, file_);
  walk(early, "morning", {}, {"morning"});
  UnsavedStore late(base_, file_);
  late.Keep("noon");
  walk(late, evening, {"noon", "morning"}, {evening, "morning"});
}

}  // namespace
}  // namespace rostermill::test
