#include <cstdlib>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolMerge : public RsmtoolTest {};

/// The recipe of docs/using.md with git itself: its diffs show the league, and it merges leagues.
TEST_F(RsmtoolMerge, GitComparesAndMergesLeagues) {
  const std::string tool = BinFolder() + "rsmtool";
  const auto git = [&](const std::string& command) {
    const std::string line =
        "cd '" + folder_.Path() + "' && HOME=. GIT_CONFIG_NOSYSTEM=1 git -c " +
        "user.name=me -c user.email=me@example.org -c init.defaultBranch=main " + command +
        " >out.txt 2>&1";
    return std::system(line.c_str());
  };
  const auto output = [this] {
    const Bytes bytes = BytesOf(Path("out.txt"));
    return std::string(bytes.begin(), bytes.end());
  };
  if (git("--version") != 0) GTEST_SKIP() << "git is not installed";
  ASSERT_EQ(git("init"), 0) << output();
  ASSERT_EQ(git("config diff.league.textconv \"'" + tool + "' dump\""), 0);
  ASSERT_EQ(git("config merge.league.driver \"'" + tool + "' merge --no-version %O %A %B %A\""), 0);
  WriteFile(folder_.Path(".gitattributes"), std::string("*.nes diff=league merge=league\n"));
  const auto commit = [&](std::initializer_list<RsmtoolTest::Patch> patches) {
    Image("league.nes", patches);
    EXPECT_EQ(git("add league.nes .gitattributes"), 0) << output();
    EXPECT_EQ(git("commit -m change"), 0) << output();
  };
  commit({{0x6DA, {0x10}}});
  ASSERT_EQ(git("checkout -b friend"), 0);
  commit({{0x6DA, {0x10}}, {0x2C2E4, {63}}});
  EXPECT_EQ(git("diff HEAD~"), 0);
  EXPECT_NE(output().find("\n+        63"), std::string::npos) << output();
  ASSERT_EQ(git("checkout main"), 0);
  commit({{0x6DA, {0x77}}});
  ASSERT_EQ(git("merge -m merged friend"), 0) << output();
  EXPECT_EQ(BytesOf(Path("league.nes"))[0x6DA], 0x77);
  EXPECT_EQ(BytesOf(Path("league.nes"))[0x2C2E4], 63);
}

}  // namespace
}  // namespace rostermill::test
