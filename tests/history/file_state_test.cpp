#include "history/file_state.h"

#include <gtest/gtest.h>

#include "tests/support/sample.h"

namespace rostermill::test {
namespace {

namespace fs = std::filesystem;

class FileStateTest : public testing::Test {
 protected:
  FileStateTest() {
    WriteFile(path_, bytes_);
    fs::create_symlink("league.nes", link_);
    known_ = FileStateOf(StampOf(link_), bytes_);
  }

  TempFolder folder_;
  std::string path_ = folder_.Path("league.nes");
  std::string link_ = folder_.Path("link.nes");
  std::vector<std::uint8_t> bytes_ = SampleBytes();
  FileState known_;
};

// Each would hide another program's work if its fact were left out.
TEST_F(FileStateTest, EveryWayOfChangingAFileIsSeenAndNothingElse) {
  EXPECT_EQ(known_.Stamp->Size, 393'232u);
  EXPECT_FALSE(StatSaysChanged(known_, link_));
  EXPECT_FALSE(StatSaysChanged(known_, path_));
  const auto time = fs::last_write_time(path_);
  auto other = bytes_;
  other[0x3010] ^= 1;
  const auto expect_changed = [&](const char* how) {
    fs::last_write_time(path_, time);
    EXPECT_TRUE(StatSaysChanged(known_, link_)) << how;
    known_ = FileStateOf(StampOf(path_), bytes_);
  };
  WriteFile(path_, other);
  expect_changed("in place, and its time put back");
  WriteFile(folder_.Path("new"), other);
  fs::rename(folder_.Path("new"), path_);
  expect_changed("by another file");
  other.push_back(0);
  WriteFile(path_, other);
  expect_changed("longer");
  EXPECT_TRUE(BytesDiffer(known_, other));
  known_.Stamp->Modified -= 1;
  EXPECT_TRUE(StatSaysChanged(known_, path_)) << "a nanosecond";
}

TEST_F(FileStateTest, TheSameBytesOfANewFileAreTheSame) {
  WriteFile(path_, bytes_);
  EXPECT_TRUE(StatSaysChanged(known_, path_));
  EXPECT_FALSE(BytesDiffer(known_, bytes_));
  auto longer = bytes_;
  longer.push_back(7);
  EXPECT_FALSE(BytesDiffer(known_, longer)) << "a save carries over what follows the image";
  longer[393'231] ^= 1;
  EXPECT_TRUE(BytesDiffer(known_, longer));
  EXPECT_TRUE(BytesDiffer(known_, std::span(bytes_).first(393'231)));
}

TEST_F(FileStateTest, AFileThatIsGoneIsLeftToTheSave) {
  fs::remove(path_);
  EXPECT_FALSE(StampOf(path_).has_value());
  EXPECT_FALSE(StatSaysChanged(known_, path_));
  const FileState never_seen = FileStateOf(std::nullopt, bytes_);
  WriteFile(path_, bytes_);
  EXPECT_TRUE(StatSaysChanged(never_seen, path_));
}

}  // namespace
}  // namespace rostermill::test
