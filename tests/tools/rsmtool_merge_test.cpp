#include <cstdlib>
#include <filesystem>

#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

class RsmtoolMerge : public RsmtoolTest {
 protected:
  /// Writes the text as a file and applies it to the sample.
  Result Apply(const std::string& json, const QStringList& more = {}) {
    WriteFile(folder_.Path("league.json"), json);
    return Run(QStringList{"apply", Image("a.nes"), Path("league.json")} + more);
  }
};

TEST_F(RsmtoolMerge, AppliedJsonChangesWhatItNames) {
  const Result result = Apply(R"({"teams": [{"index": 1, "players": [
      {"slot": 1, "jerseyNumber": "77", "ratings": {"passingSpeed": 9}}]}]})");
  EXPECT_EQ(result.Code, 0);
  EXPECT_EQ(result.Err.substr(0, result.Err.find('\n')),
            "rsmtool: 2 changes written to " + folder_.Path("a.nes"));
  const Bytes bytes = BytesOf(Path("a.nes"));
  EXPECT_EQ(bytes[0x6DA], 0x77);
  EXPECT_EQ(bytes[0x3013] >> 4, 9);
  Image("b.nes");
  const std::string changes = Out({"diff", Path("b.nes"), Path("a.nes")}, 1);
  EXPECT_TRUE(changes.starts_with("SPARROWS QB 1 sam PLOVER: Number 01 -> 77\n")) << changes;
  EXPECT_TRUE(Out({"apply", Path("b.nes"), Path("league.json"), "--dry-run"}).starts_with(changes));
  EXPECT_EQ(BytesOf(Path("b.nes")), SampleBytes());
  Out({"apply", Path("b.nes"), Path("league.json"), Path("c.nes")});
  EXPECT_EQ(BytesOf(Path("b.nes")), SampleBytes());
  EXPECT_EQ(BytesOf(Path("c.nes")), bytes);
}

TEST_F(RsmtoolMerge, EveryErrorOfAppliedJsonIsToldAndNothingIsWritten) {
  const std::string file = folder_.Path("league.json") + ": ";
  const Result wrong = Apply(R"({"teams": [{"index": 4, "color": 1, "players": [
      {"slot": 1, "ratings": {"accuracy": 16}}]}]})");
  EXPECT_EQ(wrong.Code, 2);
  EXPECT_NE(wrong.Err.find(file + "teams[0].players[0].ratings.accuracy: must be 0 to 15\n"),
            std::string::npos)
      << wrong.Err;
  EXPECT_NE(wrong.Err.find(file + "teams[0].color: "), std::string::npos) << wrong.Err;
  EXPECT_TRUE(wrong.Err.ends_with("rsmtool: 2 errors; nothing was written\n")) << wrong.Err;

  const Result name =
      Apply(R"({"teams": [{"index": 1, "players": [{"slot": 1, "lastName": "plover"}]}]})");
  EXPECT_EQ(name.Code, 2);
  EXPECT_EQ(name.Err,
            "SPARROWS QB 1 sam PLOVER: the last name \"plover\" must begin with a letter from A to "
            "Z\nrsmtool: 1 error; nothing was written\n");
  const Result city =
      Apply(R"({"teams": [{"index": 1, "city": ")" + std::string(900, 'A') + R"("}]})");
  EXPECT_EQ(city.Code, 2);
  EXPECT_NE(city.Err.find("The teams' cities and names are too long"), std::string::npos);
  EXPECT_EQ(BytesOf(Path("a.nes")), SampleBytes());
}

TEST_F(RsmtoolMerge, ADumpAppliedToItsImageChangesNothing) {
  const QString a = Image("a.nes", {{0x6DA, {0xAB}}, {0x329DB, {0, 0x1C}}, {0x1D313, {0x09}}});
  const Bytes before = BytesOf(a);
  WriteFile(folder_.Path("a.json"), Out({"dump", a}));
  const Result result = Run({"apply", a, Path("a.json")});
  EXPECT_EQ(result.Code, 0);
  EXPECT_EQ(result.Err, "rsmtool: nothing to change; " + a.toStdString() + " stays as it is\n");
  EXPECT_EQ(BytesOf(a), before);
  EXPECT_EQ(Run({"apply", a, "-"}, Out({"dump", a})).Code, 0);
  Out({"apply", a, Path("a.json"), Path("copy.nes")});
  EXPECT_EQ(BytesOf(Path("copy.nes")), before);
}

TEST_F(RsmtoolMerge, WhatOneSideChangedIsTaken) {
  const QString base = Image("base.nes");
  const QString ours = Image("ours.nes", {{0x6DA, {0x77}}, {0x5FFF0, {1}}});
  const QString theirs =
      Image("theirs.nes", {{0x3013, {0x91}}, {0x2C2E4, {63}}, {0x5FFF1, {2, 3}}});
  const Result result = Run({"merge", base, ours, theirs, Path("out.nes")});
  EXPECT_EQ(result.Code, 0) << result.Err;
  EXPECT_EQ(result.Err.substr(0, result.Err.find("Also")),
            "rsmtool: " + theirs.toStdString() +
                " changes 2 bytes outside the league, which are not merged\n"
                "rsmtool: 3 changes written to " +
                folder_.Path("out.nes") + "\n");
  const Bytes merged = BytesOf(Path("out.nes"));
  EXPECT_EQ(merged[0x6DA], 0x77);
  EXPECT_EQ(merged[0x3013], 0x91);
  EXPECT_EQ(merged[0x2C2E4], 63);
  EXPECT_EQ(merged[0x5FFF0], 1);
  EXPECT_EQ(merged[0x5FFF1], SampleBytes()[0x5FFF1]);
  EXPECT_EQ(BytesOf(ours)[0x3013], SampleBytes()[0x3013]) << "only OUT is written";
}

TEST_F(RsmtoolMerge, AConflictIsToldAndASideCanBePreferred) {
  const QString base = Image("base.nes", {{0x6DA, {0x10}}});
  const QString ours = Image("ours.nes", {{0x6DA, {0x77}}, {0x2C2E4, {63}}});
  const QString theirs = Image("theirs.nes", {{0x6DA, {0x88}}, {0x2C2E4, {63}}});
  const Bytes our_bytes = BytesOf(ours);
  const Result conflict = Run({"merge", base, ours, theirs});
  EXPECT_EQ(conflict.Code, 1);
  EXPECT_EQ(conflict.Out,
            "ours:   SPARROWS QB 1 sam PLOVER: Number 10 -> 77\n"
            "theirs: SPARROWS QB 1 sam PLOVER: Number 10 -> 88\n");
  EXPECT_EQ(conflict.Err, "rsmtool: 1 conflict; nothing was written\n");
  EXPECT_EQ(BytesOf(ours), our_bytes);
  ExpectMessage({"merge", "--ours", "--theirs", base, ours, theirs}, 2,
                "merge takes --ours or --theirs, not both");
  EXPECT_EQ(Run({"merge", "--ours", base, ours, theirs}).Code, 0);
  EXPECT_EQ(BytesOf(ours), our_bytes);
  EXPECT_EQ(Run({"merge", "--theirs", base, ours, theirs}).Code, 0);
  EXPECT_EQ(BytesOf(ours)[0x6DA], 0x88);
}

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

  ASSERT_EQ(git("checkout friend"), 0);
  commit({{0x6DA, {0x88}}, {0x2C2E4, {63}}});
  ASSERT_EQ(git("checkout main"), 0);
  const Bytes before = BytesOf(Path("league.nes"));
  EXPECT_NE(git("merge -m merged friend"), 0);
  EXPECT_NE(output().find("theirs: SPARROWS QB 1 sam PLOVER: Number 10 -> 88"), std::string::npos)
      << output();
  EXPECT_EQ(BytesOf(Path("league.nes")), before) << "our side stays in the working folder";
}

}  // namespace
}  // namespace rostermill::test
