#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <set>

#include "history/league_history.h"
#include "history/store_folder.h"
#include "history/unsaved_store.h"
#include "history/version_store.h"
#include "league/save_image.h"
#include "tests/faults/fault_walk.h"
#include "tests/support/fake_host.h"
#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;
namespace fs = std::filesystem;

/// Each test does one thing under every fault, starting from the same folder each time.
class HistoryFaults : public testing::Test {
 protected:
  HistoryFaults() {
    WriteFile(image_, old_);
    for (const char* text : {"first", "2", "3"}) KeepVersion(text);
    UnsavedStore(base_, image_).Keep("yesterday");
    fs::copy(base_, folder_.Path("origin"), fs::copy_options::recursive);
    PutBack();
  }

  void PutBack() const {
    fs::remove_all(share_);
    if (from_nothing_) return;
    fs::create_directory(share_);
    fs::copy(folder_.Path("origin"), base_, fs::copy_options::recursive);
  }

  int KeepVersion(const std::string& text) const {
    const Bytes bytes(text.begin(), text.end());
    const int number = versions_.Keep(image_, {bytes, bytes.size()}, "before a save");
    versions_.DropOld(image_);
    return number;
  }

  Texts Versions() const {
    Texts texts;
    for (const Version& version : versions_.List(image_)) {
      const Bytes bytes = versions_.Read(image_, version.Number).Bytes;
      texts.push_back(std::to_string(version.Number) + " " +
                      std::string(bytes.begin(), bytes.end()));
    }
    return texts;
  }

  Texts Row() const {
    const UnsavedStore editor(base_, image_);
    Texts row;
    for (const UnsavedState& state : editor.List()) row.push_back(editor.Read(state.Number));
    return row;
  }

  std::set<std::string> Walk(const std::function<void()>& act,
                             const std::function<void(bool done)>& check) const {
    return WalkFaults([this] { PutBack(); }, act, check);
  }

  /// What a killed process has left doesn't stay there for good.
  void ExpectNoLeftovers() const {
    for (const auto& entry : fs::directory_iterator(ImageFolder(base_, image_))) {
      EXPECT_FALSE(entry.path().filename().string().starts_with('.')) << entry.path();
    }
  }

  TempFolder folder_;
  std::string share_ = folder_.Path("share");
  std::string base_ = share_ + "/versions";
  std::string image_ = folder_.Path("league.nes");
  Bytes old_ = {'o', 'l', 'd'};
  bool from_nothing_ = false;
  VersionStore versions_{base_, {2, 500'000'000}};
};

TEST_F(HistoryFaults, AVersionIsKeptWholeOrNotAtAllAndTheOthersStay) {
  const Texts before{"3 3", "2 2", "1 first"};
  const Texts dropped{"4 4", "3 3", "1 first"};
  const Texts kept{"4 4", "3 3", "2 2", "1 first"};  // until the next one is kept
  const auto refused = Walk([&] { KeepVersion("4"); },
                            [&](bool done) {
                              const Texts now = Versions();
                              EXPECT_TRUE(now == kept || now == dropped || (!done && now == before))
                                  << testing::PrintToString(now);
                              EXPECT_EQ(FileBytes(image_), old_);
                              // Another name than that of the one that was not finished.
                              KeepVersion("5");
                              EXPECT_EQ(Versions().size(), 3u);
                              EXPECT_TRUE(Versions()[0].ends_with(" 5"));
                              EXPECT_EQ(Versions()[2], "1 first");
                              ExpectNoLeftovers();
                            });
  for (const char* call : {"write", "fsync", "rename", "open"}) {
    EXPECT_TRUE(refused.contains(call)) << call << " may fail unnoticed";
  }
}

TEST_F(HistoryFaults, AVersionThatComesAgainIsNeverGone) {
  const Texts before{"3 3", "2 2", "1 first"};
  const Texts renewed{"2 2", "3 3", "1 first"};
  Walk([&] { KeepVersion("2"); },
       [&](bool done) {
         const Texts now = Versions();
         if (now.at(0) == "4 2") return;  // its bytes could not be read, so it was kept once more
         EXPECT_TRUE(now == renewed || (!done && now == before)) << testing::PrintToString(now);
         KeepVersion("2");
         EXPECT_EQ(Versions(), renewed);
       });
}

TEST_F(HistoryFaults, TheVeryFirstVersionIsTheFirstStateOrNotThere) {
  from_nothing_ = true;
  Walk([&] { KeepVersion("new"); },
       [&](bool done) {
         const Texts now = Versions();
         EXPECT_TRUE(now == Texts{"1 new"} || (!done && now.empty()))
             << testing::PrintToString(now);
         KeepVersion("new");
         EXPECT_EQ(Versions(), Texts{"1 new"});
         EXPECT_TRUE(versions_.List(image_)[0].FirstState);
         ExpectNoLeftovers();
       });
}

TEST_F(HistoryFaults, AStateStaysUntilTheNextIsWholeAndTheRowStays) {
  const std::string evening(300'000, 'e');
  Walk(
      [&] {
        UnsavedStore editor(base_, image_);
        editor.Keep("morning");
        editor.Keep(evening);
      },
      [&](bool done) {
        Texts now = Row();
        EXPECT_TRUE(now == (Texts{evening, "yesterday"}) ||
                    (!done && (now == Texts{"yesterday"} || now == Texts{"morning", "yesterday"})));
        UnsavedStore(base_, image_).Keep("tomorrow");
        now.insert(now.begin(), "tomorrow");
        EXPECT_EQ(Row(), now);
        ExpectNoLeftovers();
      });
}

TEST_F(HistoryFaults, ASaveRemovesTheStatesOrLeavesThemWhole) {
  Walk(
      [&] {
        UnsavedStore editor(base_, image_);
        editor.Keep("today", std::vector{1});
        editor.Saved(std::vector{1});
      },
      [&](bool done) {
        const Texts now = Row();
        const Texts all{"today", "yesterday"};
        EXPECT_TRUE(std::includes(all.begin(), all.end(), now.begin(), now.end()))
            << testing::PrintToString(now);
        // One that can't be read or may be another editor's is left alone.
        if (done) {
          EXPECT_TRUE(now.empty() || now == Texts{"yesterday"});
        }
        UnsavedStore(base_, image_).Saved(std::vector{1});
        EXPECT_TRUE(Row().empty() || Row() == Texts{"today"});
      });
}

/// Whatever fails, the image is the old or the new one, and the old one is not lost without a word.
TEST_F(HistoryFaults, AnEditorsSaveHarmsNoImageAndKeepsWhatItReplaces) {
  const auto session = SampleSession();
  const LeagueData sample = session->League();
  const Bytes old = SampleBytes();
  session->ImagePath = image_;
  std::unique_ptr<LeagueHistory> history;
  FakeHost host;
  const auto prepare = [&] {
    history.reset();
    PutBack();
    WriteFile(image_, old);
    host = FakeHost();
    LeagueOf(*session) = sample;
    history = std::make_unique<LeagueHistory>(*session, base_);
    history->Loaded(old);
    session->Change("Edit Team", [](LeagueData& league) { league.TeamData[3].City = "FAULTON"; });
  };
  Bytes saved;
  auto outcome = SaveOutcome::Declined;
  WalkFaults(
      prepare, [&] { outcome = SaveImage(*session, host, *history); },
      [&](bool done) {
        const Bytes now = FileBytes(image_);
        if (saved.empty()) saved = now;  // the first time nothing fails
        EXPECT_TRUE(now == saved || (now == old && (outcome != SaveOutcome::Saved || !done)));
        bool kept = false;
        for (const Version& version : versions_.List(image_)) {
          kept = versions_.Read(image_, version).Bytes == old || kept;
        }
        EXPECT_TRUE(now == old || kept || (done && !host.messages.empty()))
            << "the save went over a state that wasn't kept, without a word";
        EXPECT_EQ(session->League().TeamData[3].City, "FAULTON");
        EXPECT_FALSE(host.busy);
      });
  EXPECT_NE(saved, old);
}

/// It can be entered and written, but not opened to be synced.
TEST_F(HistoryFaults, AFolderAboveThatMayNotBeReadHindersNothing) {
  from_nothing_ = true;
  PutBack();
  StartFaults({{"open", 1, false, Effect::Error, EACCES}});
  KeepVersion("new");
  const auto trace = StopFaults();
  EXPECT_EQ(std::ranges::find(trace, "open", &SystemCall::Name)->Path,
            fs::path(share_).parent_path().string());
  EXPECT_EQ(Versions(), Texts{"1 new"});
}

TEST_F(HistoryFaults, AFullDiskIsTheReasonThatIsGiven) {
  UnsavedStore editor(base_, image_);
  const auto no_room = testing::ThrowsMessage<FileError>("No space left on device");
  StartFaults({{"write", 1, true, Effect::Error, ENOSPC}});
  EXPECT_THAT([&] { KeepVersion("4"); }, no_room);
  EXPECT_THAT([&] { editor.Keep("today"); }, no_room);
  StopFaults();
  editor.Keep("today, again");
  EXPECT_EQ(Row(), Texts{"yesterday"}) << "it is this editor's own again";
}

/// Else another running editor's state would be offered, and removed.
TEST_F(HistoryFaults, ALockThatCannotBeAskedCountsAsHeld) {
  EXPECT_FALSE(FileLock::IsHeld(base_ + "/lock"));
  EXPECT_FALSE(FileLock::IsHeld(base_ + "/no lock"));
  StartFaults({{"open", 1, true, Effect::Error, EMFILE}});
  EXPECT_TRUE(FileLock::IsHeld(base_ + "/lock"));
  StopFaults();
}

TEST_F(HistoryFaults, ReadingUnderAFaultGivesTheTruthOrAReason) {
  Walk(
      [&] {
        const auto list = versions_.List(image_);
        ASSERT_EQ(list.size(), 3u);
        EXPECT_EQ(versions_.Read(image_, 2).Bytes, Bytes{'2'});
      },
      [&](bool) {
        EXPECT_EQ(Versions(), (Texts{"3 3", "2 2", "1 first"}));
      });
}

}  // namespace
}  // namespace rostermill::test
