#include "history/version_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <stdexcept>
#include <thread>

#include "history/store_folder.h"
#include "tests/support/sample.h"
#include <sys/wait.h>
#include <unistd.h>

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;
using Numbers = std::vector<int>;

class VersionStoreTest : public testing::Test {
 protected:
  VersionStoreTest() { fs::create_directory(folder_.Path("images")); }

  std::string Image(const std::string& name = "league.nes") const {
    return folder_.Path("images/" + name);
  }
  int Keep(const std::string& text, const std::string& image = "league.nes",
           const std::string& what = "before a save") const {
    WriteFile(Image(image), text);
    const int number = store_.Keep(Image(image), VersionStore::ReadForKeeping(Image(image)), what);
    store_.DropOld(Image(image));
    return number;
  }
  Numbers Listed(const std::string& image = "league.nes") const {
    Numbers numbers;
    for (const Version& version : store_.List(Image(image))) numbers.push_back(version.Number);
    return numbers;
  }
  /// As if all its versions had been kept then.
  void Date(const std::string& image, const std::string& when) const {
    const fs::path folder = ImageFolder(base_, Image(image));
    for (const std::string& name : FilesIn(folder)) {
      if (!name.ends_with(".nes")) continue;
      fs::rename(folder / name, folder / (name.substr(0, 14) + when + name.substr(30)));
    }
  }
  std::string Text(int number, const std::string& image = "league.nes") const {
    const Bytes bytes = store_.Read(Image(image), number).Bytes;
    return {bytes.begin(), bytes.end()};
  }

  TempFolder folder_;
  std::string base_ = folder_.Path("share/rostermill/versions");
  VersionStore store_{base_, {3, 500'000'000}};
};

TEST_F(VersionStoreTest, AVersionIsAFileThatCanBeFoundWithoutTheProgram) {
  const auto before = UtcNow();
  EXPECT_EQ(Keep("abc", "my (1) league.nes"), 1);
  EXPECT_EQ(Keep("second", "my (1) league.nes", "before import-players"), 2);
  const auto list = store_.List(Image("my (1) league.nes"));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].What, "before import-players");
  EXPECT_FALSE(list[0].FirstState);
  EXPECT_EQ(list[1].What, "before a save");
  EXPECT_TRUE(list[1].FirstState);
  EXPECT_EQ(list[1].FileSize, 3u);
  EXPECT_GE(list[1].When, before);
  EXPECT_LE(list[1].When, UtcNow());

  const std::string folder = ImageFolder(base_, Image("my (1) league.nes"));
  EXPECT_THAT(folder, testing::ContainsRegex("/my__1__league\\.nes-[0-9a-f]{16}$"));
  const std::string name = "/000001-000001_" + UtcText(list[1].When) +
                           "_3_06b05ab6733a618578af5f94892f3950_before a save.nes";
  EXPECT_EQ(FileBytes(folder + name), (Bytes{'a', 'b', 'c'}));
  const Bytes note = FileBytes(folder + "/image.txt");
  EXPECT_EQ(std::string(note.begin(), note.end()),
            fs::canonical(Image("my (1) league.nes")).string() + "\n");
  for (const auto& entry : fs::recursive_directory_iterator(folder_.Path("share"))) {
    EXPECT_EQ(entry.status().permissions(), fs::perms(entry.is_directory() ? 0700 : 0600))
        << entry.path();
  }
}

TEST_F(VersionStoreTest, LinksShareTheirImagesVersionsAndOtherImagesDoNot) {
  Keep("abc");
  Keep("other", "other.nes");
  fs::create_symlink("league.nes", Image("link.nes"));
  EXPECT_EQ(Listed("link.nes"), Numbers{1});
  EXPECT_EQ(Text(1, "link.nes"), "abc");
  EXPECT_EQ(Text(1, "other.nes"), "other");
  EXPECT_EQ(Listed("never-saved.nes"), Numbers{});
  EXPECT_EQ(VersionStore(folder_.Path("nowhere")).List(Image()).size(), 0u);
  EXPECT_FALSE(fs::exists(folder_.Path("nowhere"))) << "listing must make nothing";

  const fs::path here = fs::current_path();
  fs::current_path(folder_.Path("images"));
  fs::remove("other.nes");
  const auto deleted = store_.List("other.nes");
  fs::current_path(here);
  EXPECT_EQ(deleted.size(), 1u) << "a deleted image has none by its bare name";
}

TEST_F(VersionStoreTest, TheFirstStateAndTheLastOnesAreKept) {
  for (const char* text : {"first", "2", "3", "4", "5", "6"}) Keep(text);
  EXPECT_EQ(Listed(), (Numbers{6, 5, 4, 1}));
  EXPECT_EQ(Text(1), "first");
  EXPECT_EQ(Text(4), "4");
  EXPECT_THROW(store_.Read(Image(), 3), HistoryError);
}

// Bytes that come back have to become the latest: else the next save would drop the very state
// that the last one replaced.
TEST_F(VersionStoreTest, TheSameBytesAreKeptOnceAndBecomeTheLatest) {
  for (const char* text : {"first", "2", "3", "4"}) Keep(text);
  EXPECT_EQ(Keep("3", "league.nes", "before restore"), 3);
  EXPECT_EQ(Listed(), (Numbers{3, 4, 2, 1})) << "nothing is dropped for it";
  EXPECT_EQ(Keep("2", "league.nes", "before restore"), 2);
  EXPECT_EQ(Listed(), (Numbers{2, 3, 4, 1}));
  EXPECT_EQ(store_.List(Image())[0].What, "before restore");
  Keep("5");
  EXPECT_EQ(Listed(), (Numbers{5, 2, 3, 1}));
  EXPECT_EQ(Keep("first", "league.nes", "before restore"), 1);
  EXPECT_EQ(Listed(), (Numbers{5, 2, 3, 1}));
  EXPECT_EQ(store_.List(Image()).back().What, "before a save") << "the first state is the first";
  EXPECT_EQ(std::distance(fs::directory_iterator(ImageFolder(base_, Image())), {}), 5);
}

TEST_F(VersionStoreTest, AListedVersionIsReadWhateverItsFileIsCalledNow) {
  for (const char* text : {"first", "2", "3"}) Keep(text);
  Version second = store_.List(Image())[1];
  const auto text = [&] {
    const Bytes bytes = store_.Read(Image(), second).Bytes;
    return std::string(bytes.begin(), bytes.end());
  };
  EXPECT_EQ(text(), "2");
  Keep("2");
  EXPECT_FALSE(fs::exists(second.Path));
  EXPECT_EQ(text(), "2");
  second.Path.clear();
  EXPECT_EQ(text(), "2");
  second = store_.List(Image())[0];
  WriteFile(second.Path, "more than that");
  EXPECT_THAT(text, testing::ThrowsMessage<HistoryError>("Version 2 is damaged."));
  fs::remove(second.Path);
  EXPECT_THAT(text, testing::ThrowsMessage<HistoryError>("There is no version 2."));
}

TEST_F(VersionStoreTest, TheLongestUntouchedImageGivesRoomFirstAndFirstStatesLast) {
  const std::string hundred(99, 'x');
  for (const char* image : {"a.nes", "b.nes"}) {
    for (const char* sign : {"1", "2", "3"}) Keep(hundred + sign, image);
  }
  Keep(hundred + "1", "a.nes");
  Date("a.nes", "20260102T000000Z");
  Date("b.nes", "20260101T235959Z");
  store_ = VersionStore(base_, {3, 500});
  Keep(hundred + "1", "c.nes");
  EXPECT_EQ(Listed("b.nes"), Numbers{1});
  EXPECT_EQ(Listed("a.nes"), (Numbers{3, 2, 1}));
  EXPECT_EQ(Listed("c.nes"), Numbers{1});

  store_ = VersionStore(base_, {3, 299});
  Keep(hundred + "2", "c.nes");
  EXPECT_EQ(Listed("a.nes"), Numbers{}) << "its first state is older than c's";
  EXPECT_EQ(Listed("b.nes"), Numbers{});
  EXPECT_EQ(Listed("c.nes"), (Numbers{2, 1}));
  store_ = VersionStore(base_, {3, 10});
  Keep(hundred + "3", "c.nes");
  EXPECT_EQ(Listed("c.nes"), Numbers{3}) << "what was just kept stays";

  for (const char* image : {"a.nes", "b.nes"}) {
    store_ = VersionStore(base_, {3, 1000});
    for (const char* sign : {"1", "2", "3"}) Keep(hundred + sign, image);
    Date(image, "20260103T000000Z");
  }
  Date("c.nes", "20260104T000000Z");
  store_ = VersionStore(base_, {3, 500});
  Keep(hundred + "4", "a.nes");
  EXPECT_EQ(Listed("a.nes").size(), 4u) << "an image is touched by the version that needs room";
}

TEST_F(VersionStoreTest, OfALongFileOnlyWhatASaveChangesIsKept) {
  std::string text(4'194'304, 'a');
  Keep(text);
  text += 'b';
  Keep(text);
  const auto list = store_.List(Image());
  EXPECT_FALSE(list[1].Cut);
  EXPECT_TRUE(list[0].Cut);
  EXPECT_EQ(list[0].FileSize, 4'194'305u);
  EXPECT_EQ(store_.Read(Image(), 1).Bytes.size(), 4'194'304u);
  EXPECT_EQ(store_.Read(Image(), 2).FileSize, 4'194'305u);
  EXPECT_EQ(store_.Read(Image(), 2).Bytes, Bytes(393'232, 'a'));
  EXPECT_EQ(Keep(std::string(393'232, 'a')), 3) << "the same bytes, but all of them";
  EXPECT_FALSE(store_.List(Image())[0].Cut);
}

TEST_F(VersionStoreTest, DamagedAndForeignFilesArePassedOverAndStay) {
  for (const char* text : {"first", "second", "third"}) Keep(text);
  const std::string folder = ImageFolder(base_, Image()) + "/";
  const std::string hash(32, 'a');
  std::vector<std::string> names{"x",
                                 "7.nes",
                                 "000009-000009_20261399T000000Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T240000Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T006000Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T000060Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T0000-1Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730 000000Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T000000X_0_" + hash + "_a.nes",
                                 "9-9_20260730T000000Z_0_" + hash + "_a.nes",
                                 "000009-99999999999999_20260730T000000Z_0_" + hash + "_a.nes",
                                 "000000-000009_20260730T000000Z_0_" + hash + "_a.nes",
                                 "000009-000000_20260730T000000Z_0_" + hash + "_a.nes",
                                 "000009-000009_20260730T000000Z_0_" + hash + "_.nes",
                                 "000009-000009_20260730T000000Z_0_" + hash + ".nes",
                                 "000009-000009_20260730T000000Z_0_g" + hash.substr(1) + "_a.nes"};
  for (const std::string& name : names) WriteFile(folder + name, "");
  for (const std::string& file : FilesIn(folder)) {
    if (file.starts_with("000001-")) WriteFile(folder + file, "first and more");
    if (file.starts_with("000002-")) WriteFile(folder + file, "sEcond");
    names.push_back(file);
  }
  fs::create_directory(folder + "000008-000008_20260730T000000Z_0_" + hash + "_a.nes");
  fs::create_symlink("/dev/zero", folder + "000008-000008_20260730T000000Z_0_" + hash + "_b.nes");

  EXPECT_EQ(Listed(), (Numbers{3, 2}));
  EXPECT_THROW(store_.Read(Image(), 1), HistoryError);
  EXPECT_THROW(store_.Read(Image(), 2), HistoryError);
  EXPECT_EQ(Text(3), "third");
  EXPECT_EQ(Keep("second"), 4) << "a damaged version doesn't count as having the bytes";
  EXPECT_EQ(Text(4), "second");
  EXPECT_FALSE(store_.List(Image()).back().FirstState);
  for (const std::string& name : names) EXPECT_TRUE(fs::exists(folder + name)) << name;
}

TEST_F(VersionStoreTest, WhatCannotBeKeptIsReported) {
  const std::string longest = "azAZ09 -,.'()" + std::string(47, 'x');
  Keep("abc", "league.nes", longest);
  EXPECT_EQ(store_.List(Image())[0].What, longest);
  EXPECT_THAT(ImageFolder(base_, "/azAZ09.-{(" + std::string(40, 'x')),
              testing::ContainsRegex("/azAZ09\\.-__x{30}-[0-9a-f]{16}$"));
  fs::remove_all(folder_.Path("share"));
  WriteFile(folder_.Path("share"), "a file");
  EXPECT_THAT([this] { Keep("abc"); }, testing::ThrowsMessage<FileError>("Not a directory"));
  for (const std::string& what : {std::string(), std::string("a/b"), std::string(61, 'a')}) {
    EXPECT_THROW(Keep("abc", "league.nes", what), std::invalid_argument) << what;
  }
  EXPECT_THROW(store_.Keep(Image(), {{1, 2}, 3}, "a"), std::invalid_argument);
}

TEST_F(VersionStoreTest, ALockIsWaitedForAndEndsWithItsHolder) {
  Keep("abc");
  const std::string path = base_ + "/lock";
  std::optional<FileLock> lock(LockStore(base_));
  EXPECT_TRUE(FileLock::IsHeld(path));
  EXPECT_THROW(FileLock(path, FileLock::Kind::Exclusive, std::chrono::milliseconds(20)),
               HistoryError);
  EXPECT_EQ(Text(1), "abc") << "reading goes on";
  // A program that was started meanwhile, such as an emulator, doesn't hold it.
  const pid_t child = fork();
  if (child == 0) {
    execl("/bin/sleep", "sleep", "20", nullptr);
    _exit(1);
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    lock.reset();
  });
  EXPECT_EQ(Keep("def"), 2);
  other.join();
  EXPECT_FALSE(FileLock::IsHeld(path));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

TEST_F(VersionStoreTest, ProgramsKeepVersionsAtTheSameTime) {
  store_ = VersionStore(base_);
  std::vector<pid_t> children;
  for (int program = 0; program < 3; ++program) {
    const pid_t child = fork();
    if (child == 0) {
      for (int i = 0; i < 8; ++i) {
        const std::string text = std::to_string(program) + " " + std::to_string(i);
        const Bytes bytes(text.begin(), text.end());
        store_.Keep(Image(), {bytes, bytes.size()}, "before a save");
        store_.Keep(Image(), {{'x'}, 1}, "before a save");
      }
      _exit(0);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(Listed().size(), 25u);
  std::set<std::string> texts;
  for (int number = 1; number <= 25; ++number) texts.insert(Text(number));
  EXPECT_EQ(texts.size(), 25u);
}

}  // namespace
}  // namespace rostermill::test
