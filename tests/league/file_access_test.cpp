#include "league/file_access.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "tests/support/sample.h"
#include <sys/stat.h>

namespace rostermill::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
namespace fs = std::filesystem;

TEST(FileAccess, AFileIsCreatedAtTheEndOfDanglingLinks) {
  const TempFolder folder;
  fs::create_directories(folder.Path("shelf/deep"));
  fs::create_symlink("shelf/second", folder.Path("first"));
  fs::create_symlink(folder.Path("shelf/third"), folder.Path("shelf/second"));
  fs::create_symlink("deep/../deep/end.txt", folder.Path("shelf/third"));
  ReplaceFile(folder.Path("first"), Bytes{1, 2});
  EXPECT_FALSE(fs::is_symlink(folder.Path("shelf/deep/end.txt")));
  EXPECT_EQ(FileBytes(folder.Path("shelf/deep/end.txt")), (Bytes{1, 2}));
  for (const char* link : {"first", "shelf/second", "shelf/third"}) {
    EXPECT_TRUE(fs::is_symlink(folder.Path(link))) << link;
  }

  fs::create_symlink("other", folder.Path("ring"));
  fs::create_symlink("ring", folder.Path("other"));
  try {
    ReplaceFile(folder.Path("ring"), Bytes{1});
    ADD_FAILURE() << "a loop of links has no end";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Number(), ELOOP);
  }
}

TEST(FileAccess, FoldersDevicesAndPipesAreNotRegularFiles) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder.Path(), folder.Path("pipe"), std::string("/dev/null")}) {
    EXPECT_EQ(KindOf(path), PathKind::Other) << path;
    const auto expect_reason = [&](const std::function<void()>& act) {
      try {
        act();
        ADD_FAILURE() << path;
      } catch (const FileError& error) {
        EXPECT_STREQ(error.what(), "it is not a regular file") << path;
      }
    };
    expect_reason([&] { ReadFileStart(path, 10); });
    expect_reason([&] { ReplaceFile(path, Bytes{1}); });
    expect_reason([&] { ReplaceFileStart(path, Bytes{1}, [] {}); });
  }
  EXPECT_EQ(KindOf(folder.Path("none")), PathKind::Missing);
  WriteFile(folder.Path("file"), Bytes{1});
  EXPECT_EQ(KindOf(folder.Path("file")), PathKind::RegularFile);
  EXPECT_EQ(KindOf(folder.Path("file") + '\0' + ".nes"), PathKind::Missing);
}

TEST(FileAccess, ANewFileHasThePermissionsThatTheMaskAllows) {
  const TempFolder folder;
  const mode_t mask = umask(027);
  ReplaceFile(folder.Path("new"), Bytes{1});
  umask(mask);
  EXPECT_EQ(fs::status(folder.Path("new")).permissions(), fs::perms(0640));
}

}  // namespace
}  // namespace rostermill::test
