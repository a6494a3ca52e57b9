#include "history/file_state.h"

#include <gtest/gtest.h>

#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;

// Each would hide another program's work if its fact were left out.
TEST(FileState, EveryWayOfChangingAFileIsSeenAndNothingElse) {
  const TempFolder folder;
  const std::string path = folder.Path("league.nes"), link = folder.Path("link.nes");
  const auto bytes = SampleBytes();
  WriteFile(path, bytes);
  fs::create_symlink("league.nes", link);
  FileState known = FileStateOf(StampOf(link), bytes);
  EXPECT_EQ(known.Stamp->Size, 393'232u);
  EXPECT_FALSE(StatSaysChanged(known, link));
  EXPECT_FALSE(StatSaysChanged(known, path));
  const auto time = fs::last_write_time(path);
  const auto expect_changed = [&](const char* how) {
    fs::last_write_time(path, time);
    EXPECT_TRUE(StatSaysChanged(known, link)) << how;
    known = FileStateOf(StampOf(path), bytes);
  };
  WriteFile(path, bytes);
  expect_changed("in place, and its time put back");
  WriteFile(folder.Path("new"), bytes);
  fs::rename(folder.Path("new"), path);
  expect_changed("by another file");
  auto longer = bytes;
  longer.push_back(0);
  WriteFile(path, longer);
  expect_changed("longer");
  known.Stamp->Modified -= 1;
  EXPECT_TRUE(StatSaysChanged(known, path)) << "a nanosecond";
  fs::remove(path);
  EXPECT_FALSE(StampOf(path).has_value());
  EXPECT_FALSE(StatSaysChanged(known, path)) << "a file that is gone is left to the save";
  WriteFile(path, bytes);
  EXPECT_TRUE(StatSaysChanged(FileStateOf(std::nullopt, bytes), path));
}

TEST(FileState, OnlyTheBytesOfTheImageCount) {
  const auto bytes = SampleBytes();
  const FileState known = FileStateOf(std::nullopt, bytes);
  EXPECT_FALSE(BytesDiffer(known, bytes));
  auto longer = bytes;
  longer.push_back(7);
  EXPECT_FALSE(BytesDiffer(known, longer)) << "a save carries over what follows the image";
  longer[393'231] ^= 1;
  EXPECT_TRUE(BytesDiffer(known, longer));
  EXPECT_TRUE(BytesDiffer(known, std::span(bytes).first(393'231)));
}

}  // namespace
}  // namespace rostermill::test
