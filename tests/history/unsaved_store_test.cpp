#include "history/unsaved_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>

#include "history/unsaved_keeper.h"
#include "league/file_access.h"
#include "tests/support/sample.h"
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;
using Marks = std::vector<int>;

class UnsavedStoreTest : public testing::Test {
 protected:
  UnsavedStore Editor() const { return {base_, image_}; }

  /// An editor that keeps a state and leaves it.
  void Leave(const std::string& state, const Marks& brought_back = {}) const {
    Editor().Keep(state, brought_back);
  }

  /// What the next editor finds.
  Texts Row() const {
    const UnsavedStore editor = Editor();
    Texts row;
    for (const UnsavedState& state : editor.List()) row.push_back(editor.Read(state.Number));
    return row;
  }

  TempFolder folder_;
  std::string base_ = folder_.Path("versions");
  std::string image_ = folder_.Path("league.nes");
  std::string files_ = ImageFolder(base_, image_) + "/unsaved-";
};

TEST_F(UnsavedStoreTest, AStateIsFoundOnceItsEditorHasLeft) {
  EXPECT_EQ(Row(), Texts{});
  EXPECT_FALSE(fs::exists(base_)) << "looking must make nothing";
  const auto before = UtcNow();
  {
    UnsavedStore editor = Editor();
    editor.Keep("one");
    editor.Keep(std::string("two\n\0 and more", 14));
    EXPECT_TRUE(editor.List().empty()) << "an editor's own state isn't offered to it";
    EXPECT_EQ(Row(), Texts{}) << "nor to another";
  }
  EXPECT_EQ(Row(), Texts{std::string("two\n\0 and more", 14)});
  EXPECT_GE(Editor().List()[0].When, before);
  EXPECT_LE(Editor().List()[0].When, UtcNow());
  EXPECT_EQ(fs::status(files_ + "1.state").permissions(), fs::perms(0600));
  EXPECT_TRUE(UnsavedStore(base_, folder_.Path("other.nes")).List().empty());
}

TEST_F(UnsavedStoreTest, AKilledEditorsStateIsFoundAndItsLockRemoved) {
  const pid_t child = fork();
  if (child == 0) {
    UnsavedStore editor = Editor();
    editor.Keep("killed");
    kill(getpid(), SIGKILL);
  }
  waitpid(child, nullptr, 0);
  EXPECT_EQ(Row(), Texts{"killed"});
  EXPECT_TRUE(fs::exists(files_ + "1.lock"));
  Leave("next");
  EXPECT_EQ(Row(), (Texts{"next", "killed"}));
  EXPECT_FALSE(fs::exists(files_ + "1.lock"));
}

TEST_F(UnsavedStoreTest, EditorsOfOneImageDoNotTouchEachOthers) {
  UnsavedStore first = Editor();
  first.Keep("first");
  {
    UnsavedStore second = Editor();
    second.Keep("second");
    for (int i = 0; i < 6; ++i) Leave("more " + std::to_string(i));
    second.Remove(1);
    second.Saved(Marks{1});
    EXPECT_EQ(first.Read(1), "first");
    EXPECT_EQ(Row().size(), 5u);
  }
  EXPECT_THAT(Row(), testing::Not(testing::Contains("second"))) << "a save removes it";
  first.Drop();
  EXPECT_THAT(Row(), testing::Not(testing::Contains("first")));
  first.Keep("first again");
  EXPECT_EQ(first.Read(1), "first again");
}

TEST_F(UnsavedStoreTest, TheLatestFiveStay) {
  for (const char* state : {"1", "2", "3", "4", "5"}) Leave(state);
  UnsavedStore editor = Editor();
  EXPECT_EQ(editor.List().size(), 5u);
  editor.Keep("6");
  EXPECT_EQ(Row(), (Texts{"5", "4", "3", "2", "1"})) << "beside the one of a running editor";
  Leave("7");
  Leave("8");
  EXPECT_FALSE(fs::exists(files_ + "1.state"));
  EXPECT_EQ(Row(), (Texts{"8", "7", "5", "4", "3"}));
}

TEST_F(UnsavedStoreTest, EqualStatesAreGivenOnceAndKeptOnce) {
  Leave("same");
  Leave("other");
  Leave("same");
  EXPECT_EQ(Row(), (Texts{"same", "other"}));
  Leave("last");
  EXPECT_EQ(Row(), (Texts{"last", "same", "other"}));
  EXPECT_FALSE(fs::exists(files_ + "1.state"));
  Leave("last");
  EXPECT_EQ(Editor().List()[0].Number, 5);
  Editor().Remove(5);
  EXPECT_EQ(Row(), (Texts{"same", "other"})) << "the equal one would be offered again";
}

TEST_F(UnsavedStoreTest, ASaveRemovesWhatWasBroughtBackAndNothingElse) {
  Leave("unrelated");
  Leave("evening");
  // Brought back, changed, killed; brought back again with the changes, and saved.
  Leave("evening, more", Marks{2});
  Leave("unrelated too", Marks{77});
  Leave("evening, more", Marks{3});
  UnsavedStore editor = Editor();
  editor.Keep("not saved yet", Marks{5});
  EXPECT_EQ(Row(), (Texts{"evening, more", "unrelated too", "evening", "unrelated"}));
  editor.Saved(Marks{5});
  EXPECT_EQ(Row(), (Texts{"unrelated too", "unrelated"}));
  editor.Saved(Marks{5, 99});
  EXPECT_EQ(Row(), (Texts{"unrelated too", "unrelated"}));
}

// Else a save would remove changes that have got the number of those that were brought back.
TEST_F(UnsavedStoreTest, ANumberIsNotGivenAgain) {
  UnsavedStore editor = Editor();
  editor.Keep("one");
  Leave("two");
  Editor().Remove(2);
  Leave("unrelated");
  editor.Saved(Marks{2});
  EXPECT_EQ(Row(), Texts{"unrelated"});
}

TEST_F(UnsavedStoreTest, DamagedFilesArePassedOverAndStay) {
  Leave("whole");
  Leave("damaged");
  auto bytes = FileBytes(files_ + "2.state");
  WriteFile(files_ + "3.state", "");
  WriteFile(files_ + "4.state", std::vector(bytes.begin(), bytes.end() - 1));
  WriteFile(files_ + "5.state", std::vector(bytes.begin(), bytes.begin() + 40));
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] ^= 1;
    WriteFile(files_ + "2.state", bytes);
    EXPECT_EQ(Row(), Texts{"whole"}) << i;
    bytes[i] ^= 1;
  }
  EXPECT_THROW(Editor().Read(4), HistoryError);
  EXPECT_THROW(Editor().Read(42), HistoryError);
  Leave("next");
  EXPECT_EQ(Row(), (Texts{"next", "whole"}));
  for (const char* name : {"3.state", "4.state", "5.state"}) {
    EXPECT_TRUE(fs::exists(files_ + name)) << name;
  }
}

// The editor that makes the folder again takes a number that another one had there.
TEST_F(UnsavedStoreTest, AFolderThatWasRemovedIsMadeAgainByEachEditor) {
  UnsavedStore first = Editor(), second = Editor();
  first.Keep("first");
  fs::rename(base_, base_ + " elsewhere");
  second.Keep("second");
  first.Drop();
  EXPECT_EQ(second.Read(1), "second");
  first.Keep("first again");
  EXPECT_EQ(second.Read(1), "second");
  EXPECT_EQ(first.Read(2), "first again");
  EXPECT_EQ(Row(), Texts{}) << "their locks have to be there again";
}

TEST_F(UnsavedStoreTest, AStateBelongsToTheImageThatWasLoadedWhereverItsLinkLeadsSince) {
  WriteFile(image_, "");
  fs::create_symlink(image_, folder_.Path("link.nes"));
  UnsavedStore editor(base_, folder_.Path("link.nes"));
  fs::remove(folder_.Path("link.nes"));
  fs::create_symlink(folder_.Path("other.nes"), folder_.Path("link.nes"));
  editor.Keep("one");
  EXPECT_EQ(editor.Read(1), "one");
  EXPECT_FALSE(fs::exists(ImageFolder(base_, folder_.Path("link.nes"))));
}

TEST_F(UnsavedStoreTest, WhatCannotBeKeptIsReported) {
  WriteFile(base_, "a file");
  EXPECT_THROW(Leave("one"), FileError);
  UnsavedKeeper keeper(base_, image_);
  keeper.Keep([] { return std::string("one"); });
  keeper.Store();
  EXPECT_EQ(keeper.TakeFailure(), "Not a directory");
  EXPECT_EQ(keeper.TakeFailure(), std::nullopt);
  fs::remove(base_);
  keeper.Keep([] { return std::string("two"); });
  EXPECT_EQ(keeper.Store().Read(1), "two");
  EXPECT_EQ(keeper.TakeFailure(), std::nullopt);
  EXPECT_THROW(keeper.Store().Keep(std::string(16 * 1024 * 1024, 'x')), HistoryError);
  EXPECT_EQ(keeper.Store().Read(1), "two") << "what is too long would replace it and be unreadable";
}

TEST_F(UnsavedStoreTest, TheKeeperKeepsTheLastStateWithoutWaiting) {
  {
    UnsavedKeeper keeper(base_, image_);
    std::atomic<bool> begun = false, go = false;
    std::atomic<int> made = 0;
    keeper.Keep([&] {
      begun = true;
      while (!go) std::this_thread::yield();
      ++made;
      return std::string("first");
    });
    while (!begun) std::this_thread::yield();
    for (int i = 0; i < 50; ++i) {
      keeper.Keep([&made, i] {
        ++made;
        return "later " + std::to_string(i);
      });
    }
    EXPECT_EQ(made, 0);
    go = true;
    EXPECT_EQ(keeper.Store().Read(1), "later 49");
    EXPECT_EQ(made, 2) << "the first and the last";
    keeper.Drop();
    EXPECT_THROW(keeper.Store().Read(1), HistoryError);
    keeper.Keep([] { return std::string("left"); });
  }
  EXPECT_EQ(Row(), Texts{"left"});
}

}  // namespace
}  // namespace rostermill::test
